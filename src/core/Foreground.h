// SPDX-License-Identifier: MIT
// What is in front of the user: the main or the compact window, or whatever replaces it. For the tray icon
// and the menu, which are there all the time, whatever is on screen. Implemented in app/.
#pragma once

#include <functional>

namespace torvane {

class PopupMenu;

class Foreground {
public:
    virtual ~Foreground() = default;

    /// The program's menu, for the gestures that open it and for the tray icon.
    virtual PopupMenu& menu() = 0;
    /// The main window has been minimised, or is so no longer: then, and only then, the menu offers it.
    virtual void mainWindowMinimised(bool minimised) = 0;
    /// Whether the main or the compact window is on screen (minimised or not) and takes input: neither does
    /// another window replace it, nor does anything that `canAsk` is about keep the user from it.
    virtual bool takesOrders() const = 0;
    /// Whether a question may be put to the user: neither does another question or a message box wait for its
    /// answer, nor is input held back until a download has ended.
    virtual bool canAsk() const = 0;
    /// Brings to the front what is there, minimised or behind the windows of other programs: a message box
    /// alone, or else all windows, with those above that belong to others.
    virtual void bringBack() = 0;
    /// Does some work while the main or the compact window, whichever is on screen, is hidden.
    virtual void whileHidden(const std::function<void()>& work) = 0;
};

} // namespace torvane
