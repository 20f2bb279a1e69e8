// SPDX-License-Identifier: MIT
// The two ways in which a failure reaches the user.
#include "Runtime.h"

#include <QCoreApplication>

namespace torvane {

void Runtime::guarded(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        showFailure(failure);
        end();
    }
}

void Runtime::reporting(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        showFailure(failure);
    }
}

void Runtime::showFailure(const RuntimeFailure& failure) {
    messages.MsgBox(QStringLiteral("Run-time error '%1':\n\n%2").arg(failure.number()).arg(failure.text()),
                    MsgBoxFlags::critical);
}

void pumpEvents() { QCoreApplication::processEvents(); }

} // namespace torvane
