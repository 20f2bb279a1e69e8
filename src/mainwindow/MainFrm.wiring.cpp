// SPDX-License-Identifier: MIT
// Which event of the main window reaches which handler.
#include "MainFrm.h"
#include "catalogue/TagInput.h"
#include "core/Desk.h"
#include "core/Foreground.h"
#include "platform/forms/PopupMenu.h"

namespace torvane {

void MainFrm::wireControls() {
    wire(Games, &FileList::Click, &MainFrm::Games_Click, Failure::reported);
    wire(Games, &FileList::DblClick, &MainFrm::Label15_Click);
    wire(ListView1, &RowList::rowClicked, &MainFrm::ListView1_RowClick, Failure::reported);
    wire(ListView1, &RowList::rowDoubleClicked, &MainFrm::ListView1_RowDblClick);
    wire(Label15, &Label::Click, &MainFrm::Label15_Click);
    connect(&m_watch, &FolderWatch::changed, this, &MainFrm::libraryChanged);
    wire(displayer, &Timer::Tick, &MainFrm::displayer_Tick);
    takeDrops();
    wire(*this, &Form::pathDropped, &MainFrm::addGames, Failure::reported);
    // A window manager may report that a window is minimised after it has been hidden.
    wire(*this, &Form::resized,
         [this] { m.foreground.mainWindowMinimised(isVisible() && windowStateWord() == minimised); });
    wire(m_menuOpener, &MenuOpener::wanted, [this](QPoint place) { m.foreground.menu().popUp(place); });
    wire(TrayIcon1, &TrayIcon::clicked, [this] { m.foreground.bringBack(); });
    wire(m_dragStrip, &DragStrip::dropped, [this] { putInsideScreen(*this); });
    wire(EditID3Title, &TextBox::Change, &MainFrm::EditID3Title_Change);
    wire(EditID3Company, &TextBox::Change, [this] { ignoring([this] { warnIfTooLong(); }); });
    wire(EditID3Info, &TextBox::Change, &MainFrm::EditID3Info_Change);
    for (TextBox* field : {&EditID3Title, &EditID3Company, &EditID3Info}) {
        field->setInputFilter(TagInput::storable);
        wire(*field, &TextBox::inputRefused,
             [this] { hint(mainMenu("notstorable", QStringLiteral("Sólo/Only CP1252"))); });
    }
}

void MainFrm::wireTools() {
    opens(chameleonButton3, Window::EditDB);
    opens(chameleonButton4, Window::Compartir);
    opens(chameleonButton5, Window::Aboutfrm);
    opens(chameleonButton6, Window::SearchROM);
    opens(chameleonButton7, Window::URL);
    opens(chameleonButton8, Window::ConfigNew);
    opens(ChameleonButton12, Window::Torvette);
    opens(Searcher, Window::AdvSearch);
    Zipper.setEnabled(true);
    for (chameleonButton* button : {&Zipper, &ChameleonButton13}) {
        wire(*button, &chameleonButton::Click, &MainFrm::Zipper_Click);
    }
    wireActions();
}

void MainFrm::wireActions() {
    hints(Refresh, "listupdate");
    hints(Searcher, "search");
    hints(Zipper, "zipnav");
    wire(chameleonButton2, &chameleonButton::Click, [this] { setWindowStateWord(minimised); });
    wire(Refresh, &chameleonButton::Click, &MainFrm::Refresh_Click, Failure::reported);
    wire(chameleonButton1, &chameleonButton::Click, &MainFrm::askForExit);
    wire(ID3_Menu, &chameleonButton::Click, &MainFrm::ID3_Menu_Click);
    wire(Edit_Menu, &chameleonButton::Click, &MainFrm::Edit_Menu_Click);
    wire(ChameleonButton16, &chameleonButton::Click, &MainFrm::Label15_Click);
    wire(chameleonButton14, &chameleonButton::Click, &MainFrm::scrollUp);
    wire(chameleonButton15, &chameleonButton::MouseDown, &MainFrm::scrollDown);
    // After a file that can't be read or written the window keeps what the user typed.
    wire(chameleonButton19, &chameleonButton::Click, &MainFrm::saveTag, Failure::reported);
    wire(chameleonButton11, &chameleonButton::Click, &MainFrm::deleteTag, Failure::reported);
    for (chameleonButton* button : {&chameleonButton10, &ChameleonButton18}) {
        wire(*button, &chameleonButton::Click, &MainFrm::copyGame, Failure::reported);
    }
    for (chameleonButton* button : {&ChameleonButton17, &chameleonButton9}) {
        wire(*button, &chameleonButton::Click, &MainFrm::deleteGame, Failure::reported);
    }
}

void MainFrm::opens(chameleonButton& button, Window window) {
    wire(button, &chameleonButton::Click, [this, window] { m.desk.go(id, window); });
}

void MainFrm::hints(chameleonButton& button, const char* key) {
    wire(button, &chameleonButton::MouseMove, [this, key] { hint(mainMenu(key)); });
}

} // namespace torvane
