// SPDX-License-Identifier: MIT
// The two ways in which a failure reaches the user.
#include "Runtime.h"

#include <QCoreApplication>

namespace torvane {

void Runtime::guarded(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        if (failure.reason() == RuntimeFailure::Reason::cancelled) return;
        showFailure(failure.boxText());
        end();
    }
}

void Runtime::reporting(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        if (failure.reason() == RuntimeFailure::Reason::cancelled) return;
        showFailure(failureText ? failureText(failure) : failure.boxText());
    }
}

void Runtime::showFailure(const QString& text) { messages.MsgBox(text, MsgBoxFlags::critical); }

void pumpEvents() { QCoreApplication::processEvents(); }

} // namespace torvane
