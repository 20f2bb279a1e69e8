// SPDX-License-Identifier: MIT
// The two ways in which a failure reaches the user, and the way of a page to the printer.
#include "Runtime.h"
#include "../base/SafeFile.h"
#include "PagePdf.h"
#include "RunningHandler.h"

#include <QCoreApplication>

namespace torvane {

void Runtime::guarded(const std::function<void()>& handler) {
    const RunningHandler running;
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        if (failure.reason() == RuntimeFailure::Reason::cancelled) return;
        showFailure(failure.boxText());
        end();
    }
}

void Runtime::reporting(const std::function<void()>& handler) {
    const RunningHandler running;
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        if (failure.reason() == RuntimeFailure::Reason::cancelled) return;
        showFailure(failureText ? failureText(failure) : failure.boxText());
    }
}

void Runtime::print(const PrintedPage& page, const FileQuestion& pdfQuestion) {
    if (printer.isThere()) {
        printer.print(page);
        return;
    }
    const QString path = dialogs.showSave(pdfQuestion);
    if (!path.isEmpty()) SafeFile::replace(path, pdfOf(page, layoutWithoutPrinter()));
}

void Runtime::showFailure(const QString& text) { messages.MsgBox(text, MsgBoxFlags::critical); }

void pumpEvents() { QCoreApplication::processEvents(); }

} // namespace torvane
