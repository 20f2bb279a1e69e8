// SPDX-License-Identifier: MIT
// The first instance's end of an InstanceLink: takes the calls of later instances while events are served.
#pragma once

#include "../base/SystemCalls.h"

#include <QSocketNotifier>
#include <QTimer>

namespace torvane {

class InstanceListener : public QObject {
    Q_OBJECT

public:
    /// `listener` is a listening local socket that does not block. Callers of other users, and those that
    /// have not sent a whole message `patience` after their call, are dropped.
    explicit InstanceListener(Handle listener, std::chrono::milliseconds patience = std::chrono::seconds(2));

    /// Takes no more calls, and reports all messages that have come so far: their callers may have left.
    /// Callers that have not sent a whole message yet, and later ones, learn that nobody listens.
    void close();

signals:
    /// A later instance has handed over a message. Emitted in whatever loop serves events, also in those of
    /// handlers.
    void received(QByteArray message);

private:
    void takeCalls();
    bool takeCall();
    void rest();

    Handle m_listener;
    std::chrono::milliseconds m_patience;
    QSocketNotifier m_notifier;
    QTimer m_pause;
};

} // namespace torvane
