// SPDX-License-Identifier: MIT
// The main window: the game list, the panel with the selected game's tag, and the tools around them. It
// holds the working state that other windows reach for (`Games` above all). Tags, rows, launches and
// copies are the modules' work; which window follows which is the desk's.
#pragma once

#include "MainFrm.design.h"
#include "catalogue/ID3.h"
#include "core/Desk.h"
#include "core/Funciones.h"
#include "core/Hosts.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"
#include "toolkit/DragStrip.h"

namespace torvane {

/// What the main window works with; all of it outlives the window.
struct MainFrmParts {
    Runtime& runtime;
    Desk& desk;
    const Globals& globals;
    const LanguageTables& language;
    const Hosts& hosts;
    Funciones& funciones;
    EmulatorCatalogue& emulators;
    ShellAndClose& shell;
    ID3& id3;
};

class MainFrm : public MainFrmDesign, private GamePanel {
    Q_OBJECT

public:
    explicit MainFrm(const MainFrmParts& parts);

    /// Runs once after construction.
    void Load();

    /// The launch action: the selected game in the emulator, or an archive in the way that is set.
    void Label15_Click();
    /// Rebuilds the list from the library folder and selects the first game.
    void Refresh_Click();
    /// Fills the list from a folder, spelled; an empty text stands for the library. The second text has
    /// no meaning. No tag is read and no game is selected.
    void GetGameList(const QString& folder, const QString& second);
    /// Selects a game by its place in the list and shows it; whatever fails in that is ignored, also that
    /// there is no such game.
    void selectGame(int index);

protected:
    void queryUnload() override;

private:
    // GamePanel
    void showTag(const RomTagRecord& tag) override;
    void showNoTag(const QString& missing) override;
    void showFormat(const QString& format) override;

    // MainFrm.wiring.cpp
    void wireControls();
    void wireTwins();
    void wireTools();
    void opens(chameleonButton& button, Window window);
    void hints(chameleonButton& button, const QString& key);

    // MainFrm.cpp: load, list, selection
    void setCaptions();
    void setActionCaptions();
    void setUpTray();
    void readEmulatorSetting();
    void Games_Click();
    void showArchive();
    void showGame();
    void ListView1_RowClick(int row);
    QString mainMenu(const char* key) const;
    QString libraryFolder() const;

    // MainFrm.actions.cpp: what the buttons do
    void Edit_Menu_Click();
    void ID3_Menu_Click();
    void emptyIfMissing(TextBox& field);
    void EditID3Info_Change();
    void saveTag();
    void deleteTag();
    void copyGame();
    void deleteGame();
    void Zipper_Click();
    void launch(const QString& path);
    void scrollUp();
    void scrollDown();
    void askForExit();
    void hint(const QString& text);
    void displayer_Tick();

    MainFrmParts m;
    DragStrip m_dragStrip{*this, Label1};
};

} // namespace torvane
