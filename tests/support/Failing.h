// SPDX-License-Identifier: MIT
// Checks on failures, and conditions that make the system fail file operations.
#pragma once

#include "platform/base/RuntimeFailure.h"

#include <csignal>
#include <optional>
#include <sys/resource.h>
#include <unistd.h>

namespace torvane {

/// The number of the failure that a statement raises; nothing if it raises none.
template <typename Statement>
std::optional<int> failureOf(Statement&& statement) {
    try {
        statement();
    } catch (const RuntimeFailure& failure) {
        return failure.number();
    }
    return std::nullopt;
}

/// A number to compare with that of failureOf().
inline std::optional<int> number(RuntimeFailure::Number value) { return static_cast<int>(value); }

/// While it lives, no file of this process can grow beyond a size in bytes, as if the disk were full.
class FullDisk {
public:
    explicit FullDisk(rlim_t largestFile) {
        getrlimit(RLIMIT_FSIZE, &m_previous);
        m_previousSignal = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{largestFile, m_previous.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_previous);
        std::signal(SIGXFSZ, m_previousSignal);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_previous{};
    void (*m_previousSignal)(int) = nullptr;
};

/// While it lives, the process has the rights of an ordinary user, to whom read-only applies. The real user
/// changes too, since access(2) checks that one.
class OrdinaryUser {
public:
    OrdinaryUser() {
        if (geteuid() == 0) m_changed = setresuid(nobody, nobody, 0) == 0;
    }
    ~OrdinaryUser() {
        if (m_changed && setresuid(0, 0, 0) != 0) _exit(99);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_changed = false;
};

} // namespace torvane
