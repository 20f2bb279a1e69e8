// SPDX-License-Identifier: MIT
// The main window's load, its list and its selection.
#include "MainFrm.h"
#include "core/Desk.h"
#include "core/Foreground.h"
#include "core/Hosts.h"
#include "core/SettingValues.h"
#include "core/TraySign.h"
#include "emulator/EmulatorCatalogue.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"

namespace torvane {

namespace {
// A number as the panel shows it: no exponent, no more digits than needed.
QString plainNumber(double value) {
    QString text = QString::number(value, 'f', 15);
    while (text.endsWith(QLatin1Char('0'))) text.chop(1);
    if (text.endsWith(QLatin1Char('.'))) text.chop(1);
    return text;
}
} // namespace

MainFrm::MainFrm(const Services& services) : MainFrmDesign(services.runtime), m(services) {
    wireControls();
    wireTools();
}

void MainFrm::Load() {
    Games.setPath(m.globals.libraryFolder());
    File1.setPath(m.globals.libraryFolder());
    GetGameList(QString(), QString());
    setCaptions();
    setActionCaptions();
    setUpTray();
    // Without a game no selection hides the face of archives.
    Picture1_2.setVisible(false);
    if (ListView1.rowCount() > 0) {
        ListView1.setCurrentRow(0);
        selectGame(0);
    }
    if (Games.ListCount() == 0) m.desk.go(id, Window::NewAssistant);
    ShockwaveFlash1.setMovie(m.hosts.address(Hosts::Host::web, QStringLiteral("/banner.swf")));
    ShockwaveFlash1.Play();
    readEmulatorSetting();
    Label41.setCaption(QStringLiteral("#1/") + QString::number(Games.ListCount()));
    ID3_Menu_Click();
    ignoring([this] { Games_Click(); });
    ListView1.setFocus();
    pumpEvents();
}

void MainFrm::setCaptions() {
    Label13.setCaption(heading(mainMenu("gamelist")));
    Lbl_ID3Author.setCaption(mainMenu("gamecompany"));
    Lbl_ID3Title.setCaption(mainMenu("gametitle"));
    Lbl_ID3Date.setCaption(mainMenu("gamedate"));
    Lbl_ID3Info.setCaption(mainMenu("gameinfo"));
    Lbl_ID3Format.setCaption(mainMenu("gameformat"));
    Label46.setCaption(mainMenu("editid3"));
    Label43.setCaption(mainMenu("gamecompany"));
    Label45.setCaption(mainMenu("gametitle"));
    Label57.setCaption(mainMenu("gameinfo"));
    Label11.setCaption(mainMenu("ziptitle"));
    Label9.setCaption(mainMenu("size"));
    Label16.setCaption(mainMenu("totalrom"));
    // Has no effect; kept because the four texts belong to entries that this window once had.
    for (const char* key : {"changeromname", "listeditor", "deleterom", "romassist"}) mainMenu(key);
    emptyPanel();
    Label1.setCaption(m.globals.TitlePrefix + mainMenu("maintitle"));
}

// What the panel shows when no game is selected.
void MainFrm::emptyPanel() {
    for (Label* label : {&GameTitle, &GameAutor, &GameDate, &Label8, &Label10, &Label14, &Label20}) {
        label->setCaption(general("nodisp"));
    }
    GameFormat.setCaption(general("unknown"));
    GameInfo.setCaption(general("na"));
    fillFields({QString(), QString(), QString()});
    Label41.setCaption(QStringLiteral("#1/0"));
}

void MainFrm::setActionCaptions() {
    ChameleonButton17.setCaption(mainMenu("delzip"));
    ChameleonButton18.setCaption(mainMenu("copyzip"));
    ChameleonButton13.setCaption(mainMenu("loadzip"));
    ChameleonButton16.setCaption(mainMenu("loadrom"));
    chameleonButton11.setCaption(mainMenu("deltag"));
    chameleonButton9.setCaption(mainMenu("delrom"));
    chameleonButton10.setCaption(mainMenu("copyrom"));
    chameleonButton19.setCaption(mainMenu("edittag"));
}

void MainFrm::setUpTray() {
    TrayIcon1.setMenu(m.foreground.menu());
    Settings& settings = m.runtime.settings;
    ignoring([&] {
        const QString number = TextSetting(settings, "Icon", QStringLiteral("0")).value();
        TrayIcon1.setPicture(TraySign::pictureFile(m.globals, number));
    });
    ignoring([&] { TrayIcon1.setShown(FlagSetting(settings, "Tray", true).value()); });
}

// Has no effect; kept because the setting exists: a name and a number after a run of 100 blanks, which is cut
// at 500 blanks, so that there is no second piece.
void MainFrm::readEmulatorSetting() {
    const QString absent =
        QStringLiteral("VisualBoy Advance 1.0a") + QString(100, QLatin1Char(' ')) + QLatin1Char('0');
    TextSetting(m.runtime.settings, "Emulador", absent).value();
}

void MainFrm::GetGameList(const QString& folder, const QString&) {
    for (FileList* list : {&Games, &File1})
        list->setPath(folder.isEmpty() ? m.globals.libraryFolder() : folder);
    m.emulators.read();
    watchLibrary();
    Games.readWith(File1);
    makeRows();
    ListView1.setItems(m_rows);
    Games.selectQuietly(Games.ListCount() - 1);
}

// What both lists have, as the visible one shows it.
void MainFrm::makeRows() {
    const int count = Games.ListCount();
    const auto lengthOf = [path = File1.Path()](const QString& name) {
        return File::lengthOf(path + QLatin1Char('\\') + name);
    };
    m_rows = std::make_shared<GameRows>(File1.names(), count, lengthOf, m.globals.names);
    if (count > 0) {
        File1.selectQuietly(count - 1);
        ListView1.setHeight((count - 1) * ListView1.rowHeight());
    }
    TotalRom.setCaption(totalText(File1.ListCount()));
}

void MainFrm::Refresh_Click() {
    ListView1.Clear();
    for (FileList* list : {&Games, &File1}) list->setPath(m.globals.libraryFolder() + QLatin1Char('\\'));
    GetGameList(QString(), QString());
    pumpEvents();
    if (Games.ListCount() > 0) {
        Games.setListIndex(0);
    } else {
        showGame();
        emptyPanel();
    }
}

// The start goes on whatever is wrong with the first game; a later click reports it.
void MainFrm::selectGame(int index) {
    ignoring([&] {
        Games.selectQuietly(index);
        Games_Click();
    });
}

int MainFrm::rowOf(const QString& title) const { return m_rows->firstWith(title); }

void MainFrm::ListView1_RowClick(int row) { Games.setListIndex(row); }

// A search by title marks a row without selecting its game, and Return plays the marked one.
void MainFrm::ListView1_RowDblClick(int row) {
    if (row != Games.ListIndex()) runtime().reporting([&] { ListView1_RowClick(row); });
    if (row == Games.ListIndex()) Label15_Click();
}

void MainFrm::Games_Click() {
    if (Games.FileName().isEmpty()) return;
    ListView1.setCurrentRow(Games.ListIndex());
    showSelected();
}

void MainFrm::showSelected() {
    noteSelected();
    if (m.globals.names.secondPiece(Games.FileName()) == QStringLiteral("zip")) {
        showArchive();
    } else {
        showGame();
    }
    m.id3.ReadRomTag(Games.filePath(), *this);
    showPosition();
}

void MainFrm::showPosition() {
    const int count = Games.ListCount();
    Label41.setCaption(QStringLiteral("#%1/%2").arg(count == 0 ? 1 : Games.ListIndex() + 1).arg(count));
}

void MainFrm::showArchive() {
    Zipper.setVisible(true);
    Picture1_2.setVisible(true);
    Edit_Menu.setVisible(false);
    ID3_Menu.setVisible(false);
    Label10.setCaption(Games.FileName());
    Label14.setCaption(Games.FileName());
    Label17.setCaption(heading(QStringLiteral("ZIP Info")));
    const double kilobytes = static_cast<double>(File::lengthOf(Games.filePath())) / 1024.0;
    Label8.setCaption(plainNumber(kilobytes));
    Label8.setCaption(plainNumber(kilobytes / 1024.0).left(5) + QStringLiteral("MB"));
    Label20.setCaption(Label8.Caption());
}

void MainFrm::showGame() {
    Zipper.setVisible(false);
    Picture1_2.setVisible(false);
    ID3_Menu.setVisible(true);
    Edit_Menu.setVisible(true);
    Label17.setCaption(
        heading((Picture1_1.isHidden() ? QStringLiteral("ROM.TAG Info") : mainMenu("editid3"))));
}

void MainFrm::showTag(const RomTagRecord& tag) {
    GameAutor.setCaption(tag.Company);
    GameDate.setCaption(tag.Date);
    GameTitle.setCaption(tag.Title);
    GameInfo.setCaption(tag.Info);
    fillFields({tag.Title, tag.Company, tag.Info});
}

void MainFrm::showNoTag(const QString& missing) {
    GameTitle.setCaption(missing);
    GameInfo.setCaption(missing);
    GameAutor.setCaption(QString());
    GameDate.setCaption(QString());
    fillFields({QString(), QString(), QString()});
}

void MainFrm::showFormat(const QString& format) { GameFormat.setCaption(format); }

} // namespace torvane
