// SPDX-License-Identifier: MIT
// Which event of the main window reaches which handler.
#include "MainFrm.h"
#include "platform/base/CodePage1252.h"

namespace torvane {

namespace {
// A tag is one line of code page 1252 with "§" between its fields: what the user enters keeps to that.
QString storable(const QString& entered) {
    QString kept;
    for (const QChar c : entered) {
        const bool breaksLine = c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line;
        if (breaksLine || c.category() == QChar::Separator_Paragraph) {
            kept += QLatin1Char(' ');
        } else if (c != QChar(u'§') && CodePage1252::holds(QStringView(&c, 1))) {
            kept += c;
        }
    }
    return kept;
}
} // namespace

void MainFrm::wireControls() {
    wire(Games, &FileList::Click, this, &MainFrm::Games_Click, Failure::told);
    wire(Games, &FileList::DblClick, this, &MainFrm::Label15_Click);
    connect(&ListView1, &RowList::rowClicked, this,
            [this](int row) { runtime().telling([&] { ListView1_RowClick(row); }); });
    wire(ListView1, &RowList::rowDoubleClicked, this, &MainFrm::Label15_Click);
    wire(Label15, &Label::Click, this, &MainFrm::Label15_Click);
    wire(displayer, &Timer::Tick, this, &MainFrm::displayer_Tick);
    takeDrops();
    connect(this, &Form::pathDropped, this, [this](const QString& path) {
        const Hold hold(*this);
        runtime().guarded([&] { m.desk.addGames(path); });
    });
    connect(&m_dragStrip, &DragStrip::dropped, this, [this] { putInsideScreen(*this); });
    connect(&EditID3Title, &TextBox::Change, this, [this] { emptyIfMissing(EditID3Title); });
    wire(EditID3Info, &TextBox::Change, this, &MainFrm::EditID3Info_Change);
    for (TextBox* field : {&EditID3Title, &EditID3Company, &EditID3Info}) {
        field->setInputFilter(storable);
        connect(field, &TextBox::inputRefused, this, [this] { hint(QStringLiteral("Sólo/Only CP1252")); });
    }
}

void MainFrm::wireTwins() {
    GameAutor.setTwin(Label33);
    GameDate.setTwin(Label31);
    GameFormat.setTwin(Label29);
    GameInfo.setTwin(Label18);
    GameTitle.setTwin(Label35);
    Label11.setTwin(Label12);
    Label13.setTwin(Label38);
    Label16.setTwin(Label40);
    Label17.setTwin(Label37);
    Label2.setTwin(Label3);
    Label41.setTwin(Label42);
    Label43.setTwin(Label44);
    Label45.setTwin(Label56);
    Label46.setTwin(Label55);
    Label57.setTwin(Label58);
    Label9.setTwin(Label19);
    Lbl_ID3Author.setTwin(Label34);
    Lbl_ID3Date.setTwin(Label32);
    Lbl_ID3Format.setTwin(Label30);
    Lbl_ID3Info.setTwin(Label28);
    Lbl_ID3Title.setTwin(Label36);
    TotalRom.setTwin(Label39);
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
    for (chameleonButton* button : {&Zipper, &ChameleonButton13}) {
        button->setEnabled(true);
        wire(*button, &chameleonButton::Click, this, &MainFrm::Zipper_Click);
    }
    hints(Refresh, QStringLiteral("listupdate"));
    hints(Searcher, QStringLiteral("search"));
    hints(Zipper, QStringLiteral("zipnav"));
    connect(&chameleonButton2, &chameleonButton::Click, this, [this] { setWindowStateWord(minimised); });
    wire(Refresh, &chameleonButton::Click, this, &MainFrm::Refresh_Click);
    wire(chameleonButton1, &chameleonButton::Click, this, &MainFrm::askForExit);
    wire(ID3_Menu, &chameleonButton::Click, this, &MainFrm::ID3_Menu_Click);
    wire(Edit_Menu, &chameleonButton::Click, this, &MainFrm::Edit_Menu_Click);
    wire(ChameleonButton16, &chameleonButton::Click, this, &MainFrm::Label15_Click);
    wire(chameleonButton14, &chameleonButton::Click, this, &MainFrm::scrollUp);
    connect(&chameleonButton15, &chameleonButton::MouseDown, this, &MainFrm::scrollDown);
    // A file that can't be written or read is told, and the window stays with what the user typed.
    wire(chameleonButton19, &chameleonButton::Click, this, &MainFrm::saveTag, Failure::told);
    wire(chameleonButton11, &chameleonButton::Click, this, &MainFrm::deleteTag, Failure::told);
    for (chameleonButton* button : {&chameleonButton10, &ChameleonButton18}) {
        wire(*button, &chameleonButton::Click, this, &MainFrm::copyGame, Failure::told);
    }
    for (chameleonButton* button : {&ChameleonButton17, &chameleonButton9}) {
        wire(*button, &chameleonButton::Click, this, &MainFrm::deleteGame, Failure::told);
    }
}

void MainFrm::opens(chameleonButton& button, Window window) {
    button.setEnabled(m.desk.exists(window));
    connect(&button, &chameleonButton::Click, this,
            [this, window] { runtime().guarded([&] { m.desk.go(Window::MainFrm, window); }); });
}

void MainFrm::hints(chameleonButton& button, const QString& key) {
    connect(&button, &chameleonButton::MouseMove, this, [this, key] { hint(mainMenu(key.toLatin1())); });
}

} // namespace torvane
