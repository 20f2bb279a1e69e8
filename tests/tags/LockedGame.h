// SPDX-License-Identifier: MIT
// A game that the test locks, so that a run waits when it comes to writing to this one.
#pragma once

#include "platform/base/SystemCalls.h"

#include <sys/file.h>

namespace torvane {

/// Until it is released, a run reads it, but waits for some seconds before it writes to it: after the other
/// games of its batch.
class LockedGame {
public:
    explicit LockedGame(const QByteArray& path)
        : m_file(opened(open(path.constData(), O_RDONLY | O_CLOEXEC))) {
        flock(m_file.number(), LOCK_EX);
    }
    void release() { m_file = Handle(); }

private:
    Handle m_file;
};

} // namespace torvane
