// SPDX-License-Identifier: MIT
// What every form is given: the doors to the outside world and the default failure path. Owned by the
// program's start, or by a test that answers instead of the world.
#pragma once

#include "../base/RuntimeFailure.h"
#include "../base/Seams.h"
#include "../base/Settings.h"
#include "Printer.h"

#include <QPointer>
#include <QWidget>
#include <functional>

namespace torvane {

struct Runtime {
    MessageBoxes& messages;
    FileDialogs& dialogs;
    Browser& browser;
    ProcessRunner& processes;
    Printer& printer;
    Settings& settings;
    /// Ends the process at once, with no clean-up of windows; in tests it may return.
    std::function<void()> end;
    /// The text of a failure after which the program goes on; without it the runtime's own.
    std::function<QString(const RuntimeFailure&)> failureText = {};
    /// The window that the user has worked in last; null if it is gone, and before the first one.
    QPointer<const QWidget> lastActive = {};

    /// Runs a handler; a failure that it lets through takes the default path: the error box with number
    /// and text, then the end of the process. No exception ever reaches Qt's own frames. A failure whose
    /// reason is `cancelled` ends the handler and nothing else, here and in `reporting`.
    void guarded(const std::function<void()>& handler);
    /// Runs a handler whose failures are reported in such a box with `failureText`, after which the program
    /// goes on.
    void reporting(const std::function<void()>& handler);
    /// Prints a document of this one page. If there is no printer at all, asks where to save it as a PDF;
    /// does nothing if the user cancels. Fails with `printer`, or with the number of the file's failure.
    void print(const PrintedPage& page, const FileQuestion& pdfQuestion);

private:
    void showFailure(const QString& text);
};

/// Lets waiting events through once.
void pumpEvents();

} // namespace torvane
