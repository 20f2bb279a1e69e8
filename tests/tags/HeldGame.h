// SPDX-License-Identifier: MIT
// A game that the test keeps to itself, so that a run waits when it comes to this one.
#pragma once

#include "platform/base/Lease.h"

#include <QtTest>
#include <fcntl.h>

namespace torvane {

/// Until it is released, nobody else can open the file: a run that reads it waits for some seconds.
class HeldGame {
public:
    static constexpr int patience = 30000; // of the test, in ms

    explicit HeldGame(const QByteArray& path)
        : m_file(opened(open(path.constData(), O_RDWR | O_CLOEXEC))), m_isHeld(holdUpOthers(m_file)) {}

    /// Whether a run has come to it; waits until one has. False if none does, or if nothing can be held here.
    bool isReached() const {
        return m_isHeld &&
               QTest::qWaitFor([this] { return fcntl(m_file.number(), F_GETLEASE) != F_WRLCK; }, patience);
    }
    void release() { m_file = Handle(); }

private:
    Handle m_file;
    bool m_isHeld;
};

} // namespace torvane
