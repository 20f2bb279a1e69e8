// SPDX-License-Identifier: MIT
// The compact window: a strip that replaces the main window, which stays loaded but hidden. It steps through
// the list and launches; the selection and its data are the main window's.
#pragma once

#include "Torvette.design.h"
#include "core/GameShelf.h"
#include "core/Services.h"
#include "core/Window.h"
#include "toolkit/DragStrip.h"
#include "toolkit/MenuOpener.h"

namespace torvane {

class Torvette : public TorvetteDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::Torvette;

    explicit Torvette(const Services& services);

    /// Runs once after construction.
    void Load();

    /// Rebuilds the scrolling line from the selected game. It appears at the timer's next tick.
    void RefreshMyList();
    /// Shows the data of the selected game. Fails if its file can't be opened; size and number stay those of
    /// the previous game then.
    void ROMData();
    /// The same as a step, but the line starts anew only for another game or title, and failures are ignored.
    void follow();
    /// Moves to the corner of the screen that the setting names; a number that names none leaves the window
    /// where it is. Fails if the setting is no number.
    void takeCorner();

protected:
    /// Closing via the window manager goes back to the main window, too.
    void queryUnload() override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    // Torvette.cpp: what is shown
    void setLine(const QString& missing);
    void showTag(const SelectedGame& game);
    void showNumber(const QString& number);
    void Timer1_Tick();
    void runWhileSeen();

    // Torvette.actions.cpp: what buttons, keys and the mouse do
    void wireButtons();
    void wireKeys();
    void nameButtons();
    void clicks(chameleonButton& button, std::initializer_list<Qt::Key> keys, bool repeats);
    void liftStrip();
    void previous();
    void next();
    void showStep();
    void setFolded(bool folded);
    void setPinned(bool pinned);
    void takePin();
    void snap();
    void addGames(const QString& path);

    const Services& m;
    QStringList m_lineOf; // name and title of the game that the line was made for
    DragStrip m_dragStrip{*this, Label2};
    MenuOpener m_menuOpener{*this, Label2};
};

} // namespace torvane
