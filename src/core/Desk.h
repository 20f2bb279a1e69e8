// SPDX-License-Identifier: MIT
// How a window asks for another one. No window knows the windows that it opens or that opened it: the
// program's desk does, in one table. This is what the windows see of it.
#pragma once

#include "Window.h"

#include <QStringList>

namespace torvane {

class Desk {
public:
    virtual ~Desk() = default;

    /// One window opens another, in the way that the desk's table gives for the two; without a row for them
    /// nothing happens. When the opened window unloads, the desk brings back the one that the row names.
    /// `subject` is what the opened window is to work on, in the order that its `take` documents.
    virtual void go(Window from, Window to, const QStringList& subject = {}) = 0;
    /// The language is chosen: fills the program's texts and opens the first window.
    virtual void startApplication() = 0;
    /// The user has ended the intro: opens the window that comes after it.
    virtual void introEnded() = 0;
    /// Ends the process at once, with no clean-up.
    virtual void endProgram() = 0;
};

} // namespace torvane
