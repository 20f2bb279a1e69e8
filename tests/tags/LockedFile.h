// SPDX-License-Identifier: MIT
// A file or folder that the test locks, so that a run waits when it comes to writing there.
#pragma once

#include "platform/base/SystemCalls.h"

#include <sys/file.h>

namespace torvane {

/// Until it is released, a run reads it, but waits for some seconds before it writes there: to a game after
/// the others of its batch.
class LockedFile {
public:
    explicit LockedFile(const QByteArray& path)
        : m_file(opened(open(path.constData(), O_RDONLY | O_CLOEXEC))) {
        flock(m_file.number(), LOCK_EX);
    }
    void release() { m_file = Handle(); }

private:
    Handle m_file;
};

} // namespace torvane
