// SPDX-License-Identifier: MIT
// Looking a host up, and one try for each address.
#include "HostConnection.h"

#include <QSslSocket>

namespace torvane {

namespace {
constexpr qint64 readBuffer = 1 << 20; // bytes; beyond these a fast server has to wait
} // namespace

HostConnection::HostConnection(Line line, QObject* parent) : QObject(parent), m_line(line) {
    m_share.setSingleShot(true);
    connect(&m_share, &QTimer::timeout, this, &HostConnection::tryNext);
}

void HostConnection::open(const QString& host, quint16 port, int milliseconds) {
    m_deadline.setRemainingTime(milliseconds);
    m_host = host;
    m_port = port;
    // For an address Qt would look up its name, which may take long.
    if (const QHostAddress literal(host); !literal.isNull())
        return openOneOf({literal}, host, port, milliseconds);
    QHostInfo::lookupHost(host, this, &HostConnection::takeAddresses);
}

void HostConnection::takeAddresses(const QHostInfo& info) {
    openOneOf(info.addresses(), m_host, m_port, static_cast<int>(m_deadline.remainingTime()));
}

void HostConnection::openOneOf(const QList<QHostAddress>& addresses, const QString& host, quint16 port,
                               int milliseconds) {
    m_deadline.setRemainingTime(milliseconds);
    m_addresses = addresses;
    m_host = host;
    m_port = port;
    QMetaObject::invokeMethod(this, &HostConnection::tryNext, Qt::QueuedConnection);
}

void HostConnection::tryNext() {
    if (m_isClosed) return;
    dropSocket();
    if (m_addresses.isEmpty() || m_deadline.hasExpired()) {
        emit failed();
        return;
    }
    m_share.start(static_cast<int>(m_deadline.remainingTime() / m_addresses.size()));
    connectTo(m_addresses.takeFirst());
}

void HostConnection::connectTo(const QHostAddress& address) {
    auto* secure = m_line == Line::secure ? new QSslSocket(this) : nullptr;
    m_socket = secure != nullptr ? secure : new QTcpSocket(this);
    m_socket->setReadBufferSize(readBuffer);
    // Queued, because a connection may fail before the call returns that starts it.
    const auto giveUp = [this, tried = m_socket] {
        if (tried == m_socket) tryNext();
    };
    connect(m_socket, &QTcpSocket::errorOccurred, this, giveUp, Qt::QueuedConnection);
    if (secure != nullptr) {
        // The certificate is checked against the host, and any fault of it ends the connection.
        connect(secure, &QSslSocket::encrypted, this, &HostConnection::succeed);
        secure->connectToHostEncrypted(address.toString(), m_port, m_host);
    } else {
        connect(m_socket, &QTcpSocket::connected, this, &HostConnection::succeed);
        m_socket->connectToHost(address, m_port);
    }
}

void HostConnection::succeed() {
    m_share.stop();
    m_socket->disconnect(this);
    emit connected();
}

void HostConnection::dropSocket() {
    m_share.stop();
    if (m_socket == nullptr) return;
    m_socket->disconnect();
    m_socket->abort();
    m_socket->deleteLater();
    m_socket = nullptr;
}

} // namespace torvane
