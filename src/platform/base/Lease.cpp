// SPDX-License-Identifier: MIT
// Taking leases.
#include "Lease.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <thread>

namespace torvane {

namespace {
constexpr std::chrono::milliseconds pauseBetweenAttempts(2);

// File servers grant leases inconsistently.
bool isOnServer(const Handle& file) {
    struct statfs info {};
    if (fstatfs(file.number(), &info) != 0) return false;
    constexpr std::array<__fsword_t, 6> servers = {NFS_SUPER_MAGIC,  SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC,
                                                   SMB2_SUPER_MAGIC, AFS_SUPER_MAGIC, CEPH_SUPER_MAGIC};
    return std::find(servers.begin(), servers.end(), info.f_type) != servers.end();
}

bool take(const Handle& file, int kind) {
    fcntl(file.number(), F_SETSIG, SIGURG);
    return fcntl(file.number(), F_SETLEASE, kind) == 0;
}
} // namespace

bool takeLease(const Handle& file) {
    if (take(file, F_RDLCK)) return true;
    const bool isHeldByWriter = errno == EAGAIN && !isOnServer(file);
    if (isHeldByWriter) throw RuntimeFailure(RuntimeFailure::permissionDenied, RuntimeFailure::Reason::inUse);
    return false;
}

bool holdUpOthers(const Handle& file) { return take(file, F_WRLCK); }

void untilReleased(const std::function<bool()>& attempt, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!attempt()) {
        if (std::chrono::steady_clock::now() >= end) throw RuntimeFailure::fromErrno(EWOULDBLOCK);
        std::this_thread::sleep_for(pauseBetweenAttempts);
    }
}

Handle openedOnceReleased(const std::function<int()>& open) {
    Handle file;
    untilReleased([&] {
        file = Handle(uninterrupted(open));
        if (!file.isOpen() && errno != EWOULDBLOCK) failWithErrno();
        return file.isOpen();
    });
    return file;
}

} // namespace torvane
