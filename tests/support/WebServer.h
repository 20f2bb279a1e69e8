// SPDX-License-Identifier: MIT
// A server on this machine that answers each request as the test wants, down to the last byte. It lives on
// the thread of the test, so it answers while events are served.
#pragma once

#include <QSslConfiguration>
#include <QSslServer>
#include <QTcpSocket>
#include <QTimer>
#include <functional>
#include <memory>
#include <sys/socket.h>

namespace torvane {

class WebServer {
public:
    /// Called once for each request, with the path that it asks for.
    using Answer = std::function<void(QTcpSocket& client, const QByteArray& path)>;

    explicit WebServer(Answer answer) : m_answer(std::move(answer)), m_server(new QTcpServer) {
        QObject::connect(m_server.get(), &QTcpServer::newConnection, [this] { accept(); });
        m_server->listen(QHostAddress::LocalHost);
    }
    /// The same for https.
    WebServer(Answer answer, const QSslConfiguration& identity)
        : m_answer(std::move(answer)), m_server(new QSslServer), m_scheme("https") {
        static_cast<QSslServer*>(m_server.get())->setSslConfiguration(identity);
        QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, [this] { accept(); });
        m_server->listen(QHostAddress::LocalHost);
    }
    /// Always the same bytes, after which the connection is closed.
    explicit WebServer(const QByteArray& bytes) : WebServer(saying(bytes)) {}

    static Answer saying(const QByteArray& bytes) {
        return [bytes](QTcpSocket& client, const QByteArray&) {
            client.write(bytes);
            client.disconnectFromHost();
        };
    }
    /// Bytes, and then a connection that is reset.
    static Answer breakingOffAfter(const QByteArray& bytes) {
        return [bytes](QTcpSocket& client, const QByteArray&) {
            client.write(bytes);
            QTimer::singleShot(20, &client, [&client] { reset(client); });
        };
    }
    /// Resets a connection. The other side may lose what it has not received yet.
    static void reset(QTcpSocket& client) {
        const linger hard{.l_onoff = 1, .l_linger = 0};
        setsockopt(static_cast<int>(client.socketDescriptor()), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
        client.abort();
    }

    QString address(const QString& path = QStringLiteral("/file.txt")) const {
        return QStringLiteral("%1://127.0.0.1:%2%3")
            .arg(QLatin1String(m_scheme), QString::number(m_server->serverPort()), path);
    }
    /// From now on it takes no connection: for a forked process, which shares the socket.
    void stopListening() { m_server->close(); }
    /// The heads of all requests, in their order.
    QByteArrayList requests;

private:
    void accept() {
        while (QTcpSocket* client = m_server->nextPendingConnection()) {
            QObject::connect(client, &QTcpSocket::readyRead, client, [this, client] { read(*client); });
            read(*client); // a request may have come with the end of a TLS handshake
        }
    }
    void read(QTcpSocket& client) {
        QByteArray head = client.property("head").toByteArray() + client.readAll();
        if (!head.contains("\r\n\r\n")) {
            client.setProperty("head", head);
            return;
        }
        client.setProperty("head", QByteArray());
        requests.append(head);
        m_answer(client, head.split(' ').value(1));
    }

    Answer m_answer;
    std::unique_ptr<QTcpServer> m_server;
    const char* m_scheme = "http";
};

/// An answer with a length in its header.
inline QByteArray answerOf(const QByteArray& body, const QByteArray& status = "200 OK",
                           const QByteArray& moreHeader = {}) {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" +
           moreHeader + "Connection: close\r\n\r\n" + body;
}

} // namespace torvane
