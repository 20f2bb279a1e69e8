// SPDX-License-Identifier: MIT
// Counts how often a folder is opened: that is how often it is read.
#pragma once

#include "platform/base/SystemCalls.h"

#include <array>
#include <cstring>
#include <sys/inotify.h>

namespace torvane {

/// Counts from its construction on, whoever opens the folder.
class FolderOpenings {
public:
    explicit FolderOpenings(const QByteArray& folder) {
        // With the closings in between: the kernel makes one event of two that are alike.
        constexpr uint32_t kinds = IN_OPEN | IN_CLOSE_NOWRITE;
        if (inotify_add_watch(m_events.number(), folder.constData(), kinds) < 0) failWithErrno();
    }
    /// Since the last call, or since the construction.
    int count() const {
        int openings = 0;
        std::array<char, 4096> buffer;
        ssize_t got = 0;
        while ((got = read(m_events.number(), buffer.data(), buffer.size())) > 0) {
            for (const char* at = buffer.data(); at < buffer.data() + got;) {
                inotify_event event{};
                std::memcpy(&event, at, sizeof event);
                const bool isFolder = event.len == 0; // the files in it have names
                if (isFolder && (event.mask & IN_OPEN) != 0) ++openings;
                at += sizeof event + event.len;
            }
        }
        return openings;
    }

private:
    Handle m_events = opened(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
};

} // namespace torvane
