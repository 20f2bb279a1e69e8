// SPDX-License-Identifier: MIT
// The lock decides who is first, so the socket of a dead process can be replaced without a race: only the
// holder of the lock touches it. The kernel queues calls, so nobody waits for a first instance that is busy.
#include "InstanceLink.h"
#include "InstanceProtocol.h"

#include <cstddef>
#include <cstring>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace torvane {

namespace {
constexpr int pauseTime = 5; // ms between attempts
constexpr int mostWaiting = 1024;
constexpr int sendRoom = 1 << 20; // bytes, of which the system grants what it likes

struct Address {
    sockaddr_un name{};

    // The name in an open folder. Real paths may be longer than an address can be.
    Address(const Handle& folder, const QByteArray& socketName) {
        name.sun_family = AF_UNIX;
        const QByteArray path = "/proc/self/fd/" + QByteArray::number(folder.number()) + '/' + socketName;
        std::memcpy(name.sun_path, path.constData(),
                    std::min(sizeof name.sun_path - 1, static_cast<size_t>(path.size())));
    }
    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&name); }
};

Handle newSocket() { return Handle(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)); }

// Whether it is ready for `events` within so many milliseconds.
bool awaits(const Handle& socket, short events, qint64 milliseconds) {
    pollfd look{socket.number(), events, 0};
    return uninterrupted([&] { return poll(&look, 1, static_cast<int>(milliseconds)); }) > 0;
}
} // namespace

InstanceLink::InstanceLink(Handle folder, const QByteArray& name)
    : m_folder(std::move(folder)), m_lockName(name + ".lock"), m_socketName(name + ".socket") {}

InstanceLink::Role InstanceLink::meet(const QByteArray& message, const Patience& patience) {
    const QByteArray framed = InstanceProtocol::framed(message);
    const QDeadlineTimer deadline(patience.total);
    for (;;) {
        const Lock lock = tryLock();
        if (lock == Lock::taken) return listen() ? Role::first : Role::unlinked;
        if (lock == Lock::impossible) return Role::unlinked;
        if (message.size() > InstanceProtocol::longestMessage) return Role::tooLong;
        if (deliver(framed, deadline, patience.receipt)) return Role::second;
        if (deadline.hasExpired()) return Role::unanswered;
        poll(nullptr, 0, pauseTime);
    }
}

InstanceLink::Lock InstanceLink::tryLock() {
    constexpr int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC;
    Handle lock(
        uninterrupted([&] { return openat(m_folder.number(), m_lockName.constData(), flags, 0600); }));
    if (!lock.isOpen()) return Lock::impossible;
    if (flock(lock.number(), LOCK_EX | LOCK_NB) != 0) {
        return errno == EWOULDBLOCK ? Lock::held : Lock::impossible;
    }
    // Somebody may have deleted the file in between: then the lock on it keeps nobody out.
    struct stat named {};
    if (fstatat(m_folder.number(), m_lockName.constData(), &named, AT_SYMLINK_NOFOLLOW) != 0 ||
        !isSameFile(named, infoOf(lock))) {
        return Lock::held;
    }
    m_lock = std::move(lock);
    return Lock::taken;
}

bool InstanceLink::listen() {
    unlinkat(m_folder.number(), m_socketName.constData(), 0);
    Handle listener = newSocket();
    const Address address(m_folder, m_socketName);
    // The mode of the socket becomes that of the file.
    if (!listener.isOpen() || fchmod(listener.number(), S_IRUSR | S_IWUSR) != 0 ||
        bind(listener.number(), address.get(), sizeof address.name) != 0 ||
        ::listen(listener.number(), mostWaiting) != 0) {
        m_lock = Handle();
        return false;
    }
    m_listener = std::move(listener);
    return true;
}

Handle InstanceLink::connected() const {
    Handle socket = newSocket();
    const Address address(m_folder, m_socketName);
    const auto call = [&] { return connect(socket.number(), address.get(), sizeof address.name); };
    const bool isMet = socket.isOpen() && uninterrupted(call) == 0;
    return isMet && InstanceProtocol::isOfThisUser(socket) ? std::move(socket) : Handle();
}

// False also if the first instance ends at this moment, or does not listen yet.
bool InstanceLink::deliver(const QByteArray& framed, QDeadlineTimer deadline,
                           std::chrono::milliseconds receipt) const {
    const Handle socket = connected();
    if (!socket.isOpen() || !sendAll(socket, framed, deadline)) return false;
    shutdown(socket.number(), SHUT_WR);
    if (!awaits(socket, POLLIN, receipt.count())) return true;
    char answer = 0;
    const ssize_t got = uninterrupted([&] { return recv(socket.number(), &answer, 1, 0); });
    return got == 1 && answer == InstanceProtocol::receipt;
}

bool InstanceLink::sendAll(const Handle& socket, QByteArrayView bytes, QDeadlineTimer deadline) {
    setsockopt(socket.number(), SOL_SOCKET, SO_SNDBUF, &sendRoom, sizeof sendRoom);
    while (!bytes.isEmpty()) {
        const ssize_t sent = uninterrupted([&] {
            return send(socket.number(), bytes.data(), static_cast<size_t>(bytes.size()), MSG_NOSIGNAL);
        });
        if (sent < 0 && errno != EAGAIN) return false;
        if (sent < 0 && !awaits(socket, POLLOUT, deadline.remainingTime())) return false;
        if (sent > 0) bytes = bytes.sliced(sent);
    }
    return true;
}

} // namespace torvane
