// SPDX-License-Identifier: MIT
// Accepts calls and reads what they send.
#include "InstanceListener.h"
#include "../base/InstanceProtocol.h"

#include <array>
#include <sys/socket.h>

namespace torvane {

namespace {
constexpr int mostCalls = 64;  // at a time; others wait in the kernel's queue
constexpr int pauseTime = 100; // ms until the next look at that queue after a failure or a crowd

// One connection; a child of the listener.
class InstanceCall : public QObject {
public:
    InstanceCall(InstanceListener& listener, Handle socket, std::chrono::milliseconds patience)
        : QObject(&listener), m_listener(listener), m_socket(std::move(socket)),
          m_notifier(m_socket.number(), QSocketNotifier::Read) {
        connect(&m_notifier, &QSocketNotifier::activated, this, [this] { read(); });
        QTimer::singleShot(patience, this, [this] { close(); });
    }

    // The message may have been there in time, and this process have been stopped.
    void close() {
        read();
        end();
        m_socket = Handle();
    }

private:
    // All that is there.
    void read() {
        std::array<char, 1 << 16> buffer;
        for (;;) {
            const ssize_t got =
                uninterrupted([&] { return recv(m_socket.number(), buffer.data(), buffer.size(), 0); });
            if (got < 0 && errno == EAGAIN) return;
            if (got == 0) return finish();
            if (got > 0) m_bytes.append(buffer.data(), got);
            constexpr qsizetype most = InstanceProtocol::headLength + InstanceProtocol::longestMessage;
            if (got < 0 || m_bytes.size() > most) return end();
        }
    }
    void finish() {
        end();
        const auto message = InstanceProtocol::unframed(m_bytes);
        if (!message) return;
        send(m_socket.number(), &InstanceProtocol::receipt, 1, MSG_NOSIGNAL);
        m_socket = Handle();
        emit m_listener.received(*message);
    }
    void end() {
        m_notifier.setEnabled(false);
        deleteLater();
    }

    InstanceListener& m_listener;
    Handle m_socket;
    QSocketNotifier m_notifier;
    QByteArray m_bytes;
};
} // namespace

InstanceListener::InstanceListener(Handle listener, std::chrono::milliseconds patience)
    : m_listener(std::move(listener)), m_patience(patience),
      m_notifier(m_listener.number(), QSocketNotifier::Read) {
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseTime);
    connect(&m_notifier, &QSocketNotifier::activated, this, &InstanceListener::takeCalls);
    connect(&m_pause, &QTimer::timeout, this, &InstanceListener::takeCalls);
}

void InstanceListener::takeCalls() {
    m_notifier.setEnabled(true);
    while (children().size() < mostCalls) {
        if (!takeCall()) return;
    }
    rest();
}

// False if there is no further call, or none can be taken now.
bool InstanceListener::takeCall() {
    Handle socket(uninterrupted(
        [this] { return accept4(m_listener.number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC); }));
    if (!socket.isOpen()) {
        if (errno == ECONNABORTED) return true;
        if (errno != EAGAIN) rest();
        return false;
    }
    if (InstanceProtocol::isOfThisUser(socket)) new InstanceCall(*this, std::move(socket), m_patience);
    return true;
}

// Who calls from now on is refused; who has called before is in the queue, or a child.
void InstanceListener::close() {
    shutdown(m_listener.number(), SHUT_RDWR);
    while (takeCall()) {
    }
    m_notifier.setEnabled(false);
    m_pause.stop();
    const QObjectList calls = children();
    for (QObject* call : calls) static_cast<InstanceCall*>(call)->close();
}

// The queue stays readable: without a pause the notifier would keep a processor busy.
void InstanceListener::rest() {
    m_notifier.setEnabled(false);
    m_pause.start();
}

} // namespace torvane
