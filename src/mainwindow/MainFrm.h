// SPDX-License-Identifier: MIT
// The main window: the game list, the panel with the selected game's tag, and the tools around them. It
// holds the working state that other windows reach for (`Games` above all). Tags, rows, launches and
// copies are the modules' work; the desk knows which window opens which.
#pragma once

#include "MainFrm.design.h"
#include "catalogue/GameRows.h"
#include "catalogue/ID3.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "platform/base/FolderWatch.h"
#include "platform/base/WholeFiles.h"
#include "toolkit/DragStrip.h"
#include "toolkit/MenuOpener.h"

namespace torvane {

class MainFrm : public MainFrmDesign, private GamePanel {
    Q_OBJECT

public:
    static constexpr Window id = Window::MainFrm;

    explicit MainFrm(const Services& services);

    /// Runs once after construction.
    void Load();

    /// The launch action: the selected game in the emulator, or an archive in the way that is set.
    void Label15_Click();
    /// Opens the page where games are searched for, in the browser.
    void OpenSearchWeb();
    /// Rebuilds the list from the library folder and selects the first game.
    void Refresh_Click();
    /// Fills the list from a folder, spelled; an empty text means the library. The second text has
    /// no meaning. No tag is read and no game is selected.
    void GetGameList(const QString& folder, const QString& second);
    /// Selects a game by its place in the list and shows it; all failures are ignored, a missing game among
    /// them.
    void selectGame(int index);
    /// The row of the first game whose title begins with a text (see GameShelf); -1 for none.
    int rowOf(const QString& title) const;
    /// A game has got another tag (see GameShelf); its spelled path.
    void tagChanged(const QString& path);

protected:
    void queryUnload() override;

private:
    // GamePanel
    void showTag(const RomTagRecord& tag) override;
    void showNoTag(const QString& missing) override;
    void showFormat(const QString& format) override;

    // MainFrm.wiring.cpp
    void wireControls();
    void wireTools();
    void wireActions();
    void opens(chameleonButton& button, Window window);
    void hints(chameleonButton& button, const char* key);

    // MainFrm.cpp: load, list, selection
    void setCaptions();
    void emptyPanel();
    void setActionCaptions();
    void setUpTray();
    void readEmulatorSetting();
    void makeRows();
    void Games_Click();
    void showSelected();
    void showPosition();
    void showArchive();
    void showGame();
    void ListView1_RowClick(int row);
    void ListView1_RowDblClick(int row);

    // MainFrm.follow.cpp: what other programs do to the library
    void watchLibrary();
    void beginWatching();
    void libraryChanged();
    void followLibrary();
    void exchangeGames(const WholeFiles::Tables& tables);
    int placeOfSelected(int before) const;
    int topForSight(const FolderNames& before) const;
    void followPanels();
    void followSelected();
    void noteSelected();
    bool isEdited() const { return typedTag() != m_filled; }
    void fillFields(const QStringList& tag);

    // MainFrm.actions.cpp: what the buttons do
    void Edit_Menu_Click();
    void ID3_Menu_Click();
    void emptyIfMissing(TextBox& field);
    QStringList typedTag() const;
    void setTypedTag(const QStringList& tag);
    void EditID3Title_Change();
    void EditID3Info_Change();
    void saveTag();
    void warnIfTooLong();
    void deleteTag();
    void copyGame();
    void deleteGame();
    void Zipper_Click();
    void addGames(const QString& path);
    void scrollUp();
    void scrollDown();
    void askForExit();
    void play();
    void hint(const QString& text);
    static QString heading(const QString& text) { return QStringLiteral("» ") + text; }
    void displayer_Tick();

    const Services& m;
    const Texts mainMenu{m.language, "MainMenu"};
    const Texts general{m.language, "globals"};
    DragStrip m_dragStrip{*this, Label1};
    MenuOpener m_menuOpener{*this, Label1};
    std::shared_ptr<const GameRows> m_rows; // of ListView1
    FolderWatch m_watch;
    bool m_isWatching = false;
    struct stat m_readFolder {
    };                       // the library's folder before it was read; its time is 0 if that tells nothing
    bool m_isBehind = false; // the library has changed, and the list will follow when no handler runs
    QByteArray m_panelGame;  // the name of the game that the panel shows, or showed before it vanished
    struct stat m_panelFile {};
    QStringList m_filled; // what the fields of the editing face held before the user typed
    enum class Filling {
        all,
        changed, ///< a field that has the text already keeps its cursor
        none     ///< the user is typing
    } m_filling = Filling::all;
};

} // namespace torvane
