// SPDX-License-Identifier: MIT
// Connects to a host: tries its addresses one after the other until one answers. Owned by the request.
#pragma once

#include <QDeadlineTimer>
#include <QHostAddress>
#include <QHostInfo>
#include <QPointer>
#include <QTcpSocket>
#include <QTimer>

namespace torvane {

/// Qt's sockets try all addresses, too, but give each of them 30 seconds: a request would be over before the
/// second one. Here each has a fair part of the time.
class HostConnection : public QObject {
    Q_OBJECT

public:
    enum class Line { plain, secure };

    explicit HostConnection(Line line, QObject* parent = nullptr);
    ~HostConnection() override { close(); }

    /// Looks the host up and connects to it within some milliseconds, which the look-up is part of. To be
    /// called once.
    void open(const QString& host, quint16 port, int milliseconds);
    /// The same for a host with known addresses. A certificate must be for the host.
    void openOneOf(const QList<QHostAddress>& addresses, const QString& host, quint16 port, int milliseconds);
    /// Ends the connection or the try, without a signal: the socket has no receivers any more.
    void close() {
        m_isClosed = true;
        dropSocket();
    }
    /// The socket that is connected, over TLS if the line is secure.
    QTcpSocket& socket() { return *m_socket; }

signals:
    /// The socket is connected. Never emitted by `open` itself; so is `failed`.
    void connected();
    /// No address has answered, or their certificates are not accepted.
    void failed();

private:
    void takeAddresses(const QHostInfo& info);
    void tryNext();
    void connectTo(const QHostAddress& address);
    void succeed();
    void dropSocket();

    const Line m_line;
    QString m_host;
    quint16 m_port = 0;
    QList<QHostAddress> m_addresses; // not tried yet
    QDeadlineTimer m_deadline;
    QTimer m_share; // ends the try of one address
    QPointer<QTcpSocket> m_socket;
    bool m_isClosed = false;
};

} // namespace torvane
