// SPDX-License-Identifier: MIT
// Lets one instance of a program run at a time: the first one holds a lock and listens, the others hand their
// messages over to it. Raw sockets, so that a second instance can end before it has set up anything of Qt.
#pragma once

#include "SystemCalls.h"

#include <QDeadlineTimer>
#include <chrono>

namespace torvane {

class InstanceLink {
public:
    /// What this instance is.
    enum class Role {
        first,      ///< it listens, and stays the only one as long as this object lives
        second,     ///< another one has its message, or will find it as soon as it is no longer busy
        unanswered, ///< another one runs and can't take the message in time
        tooLong,    ///< another one runs, and the message is longer than InstanceProtocol allows
        unlinked    ///< the folder allows neither lock nor socket, so that nobody knows
    };

    struct Patience {
        /// Until it is clear what this instance is.
        std::chrono::milliseconds total = std::chrono::seconds(2);
        /// Until the first one confirms a message. Without that it is busy, and finds the message later.
        std::chrono::milliseconds receipt = std::chrono::milliseconds(10);
    };

    /// The folder is the user's own (see openRuntimeFolder). Instances with the same name are of one kind; it
    /// gets the endings ".lock" and ".socket". Both files stay there afterwards.
    InstanceLink(Handle folder, const QByteArray& name);

    /// Becomes the first instance, or hands a message over to it. Takes the total patience only if the first
    /// one neither takes the message nor ends.
    Role meet(const QByteArray& message, const Patience& patience);

    /// The listening socket of the first instance, which does not block.
    Handle takeListener() { return std::move(m_listener); }

private:
    enum class Lock { taken, held, impossible };

    Lock tryLock();
    bool listen();
    Handle connected() const;
    bool deliver(const QByteArray& framed, QDeadlineTimer deadline, std::chrono::milliseconds receipt) const;
    static bool sendAll(const Handle& socket, QByteArrayView bytes, QDeadlineTimer deadline);

    Handle m_folder;
    QByteArray m_lockName;
    QByteArray m_socketName;
    Handle m_lock;
    Handle m_listener;
};

} // namespace torvane
