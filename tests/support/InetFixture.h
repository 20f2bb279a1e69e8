// SPDX-License-Identifier: MIT
// A window with a download control, and what a download of it gives.
#pragma once

#include "FakeDesktop.h"
#include "TestForm.h"
#include "WebServer.h"
#include "platform/forms/Inet.h"

#include <QElapsedTimer>
#include <optional>

namespace torvane {

struct InetForm : TestForm {
    using TestForm::TestForm;
    Inet down{*this, "down"};
};

/// A download's body, or its failure.
struct Fetched {
    QByteArray body = {};
    int failure = 0; ///< the number; 0 if there is a body
    RuntimeFailure::Reason reason = RuntimeFailure::Reason::none;
};

inline Fetched fetched(Inet& inet, const QString& address) {
    try {
        return {.body = inet.OpenURL(address)};
    } catch (const RuntimeFailure& failure) {
        return {.failure = failure.number(), .reason = failure.reason()};
    }
}

constexpr int deviceError = RuntimeFailure::deviceError;

/// Limits that a test can wait for.
constexpr TransferLimits smallLimits{.silenceMilliseconds = 300, .bytes = 1 << 20, .redirects = 5};

} // namespace torvane
