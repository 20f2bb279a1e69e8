// SPDX-License-Identifier: MIT
// What other windows may ask of the compact window. Implemented in app/ over the window itself, so that no
// other window includes it.
#pragma once

namespace torvane {

class CompactWindow {
public:
    virtual ~CompactWindow() = default;

    /// Whether it is on screen. The main window is hidden then, and what hides itself for a while comes back
    /// to the compact window. One that the user has minimised counts as shown.
    virtual bool isShown() const = 0;
    /// The selection or the library has changed: shows the selected game's name and data. Failures are
    /// reported here and reach no caller. Does nothing while the window is not loaded.
    virtual void refresh() = 0;
    /// Other programs have changed the library or the selected game: shows what is different now. The line
    /// goes on scrolling where it is unless the game or its title is another one. Ignores failures. Does
    /// nothing while the window is not loaded.
    virtual void follow() = 0;
    /// Moves it to the corner of the setting. Does nothing unless it is on screen. Fails if the setting is no
    /// number.
    virtual void takeCorner() = 0;
};

} // namespace torvane
