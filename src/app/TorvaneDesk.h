// SPDX-License-Identifier: MIT
// Which window opens which, and which comes back: the whole way through the program in one file.
#pragma once

#include "core/Desk.h"

#include <array>

namespace torvane {

class Form;
class Program;
struct Way;

class TorvaneDesk : public Desk {
public:
    explicit TorvaneDesk(Program& program) : m_program(program) {}

    void go(Window from, Window to, const QStringList& subject = {}) override;
    void startApplication() override;
    void introEnded() override;
    void endProgram() override;

    /// Whether a window is on screen that replaces the main or the compact one.
    bool isReplaced() const;
    /// A window has unloaded itself: what its way says comes back.
    void unloaded(Window window);

private:
    /// Makes room for the window that a way opens, loads it and shows it. False if it closed itself at once.
    bool open(const Way& way);
    /// Hides what the window of a way replaces.
    void makeRoom(const Way& way);
    /// The window that the opened one belongs to; null for none.
    Form* ownerFor(const Way& way) const;
    /// Puts the windows that a window owns above it again, after it was opened anew or has come back.
    void raiseOwned(Window owner);
    /// Closes the windows that go when their opener goes.
    void unloadHeld(Window opener);
    /// Who gets what belonged to a window that has gone.
    enum class Heir {
        opener, ///< of that window
        face,   ///< the main or compact window that comes back, which also gets what belongs to what is on
                ///< screen
    };
    void handOver(Window owner, Window heir, Heir kind);
    /// Loads the window that the start shows.
    Form* loadFirst(Window first);
    /// Selects the first game, whatever is wrong with it.
    void selectFirstGame();
    /// The window that the user's setting wants first.
    Window firstWindow() const;

    Program& m_program;
    std::array<const Way*, windowCount> m_cameBy = {}; // the way by which each window was last opened
    std::array<Window, windowCount> m_replaced = {};   // for each the main or compact one that it has hidden
};

} // namespace torvane
