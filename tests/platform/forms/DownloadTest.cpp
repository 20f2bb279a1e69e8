// SPDX-License-Identifier: MIT
// Fetching small files from a server on this machine: what arrives, and what every failure gives.
#include "platform/forms/Download.h"
#include "support/TestMain.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>
#include <memory>
#include <optional>

using namespace torvane;

namespace {
// Answers every request with the same bytes and closes.
class OneAnswer : public QTcpServer {
public:
    explicit OneAnswer(QByteArray answer) : m_answer(std::move(answer)) {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                socket->readAll();
                socket->write(m_answer);
                socket->disconnectFromHost();
            });
        });
    }
    QString address() const { return QStringLiteral("http://127.0.0.1:%1/banner.swf").arg(serverPort()); }

private:
    QByteArray m_answer;
};

QByteArray withBody(const QByteArray& body, const QByteArray& status = "200 OK") {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}
} // namespace

class DownloadTest : public QObject {
    Q_OBJECT

    // The body that an answer gives; nothing if none came within five seconds.
    std::optional<QByteArray> fetched(const QByteArray& answer, qint64 limit = 1000) {
        OneAnswer server(answer);
        QObject receiver;
        std::optional<QByteArray> body;
        Download::start(receiver, server.address(), limit, [&](const QByteArray& bytes) { body = bytes; });
        [&] { QTRY_VERIFY(body.has_value()); }();
        return body;
    }

private slots:
    void a_body_arrives_byte_for_byte() {
        const QByteArray body("a\0b\xFF\r\n", 6);
        QCOMPARE(fetched(withBody(body)), std::optional(body));
    }
    void a_body_of_exactly_the_limit_arrives() {
        QCOMPARE(fetched(withBody(QByteArray(1000, 'x'))), std::optional(QByteArray(1000, 'x')));
    }
    void a_longer_body_counts_as_a_failure() {
        QCOMPARE(fetched(withBody(QByteArray(1001, 'x'))), std::optional(QByteArray()));
    }
    void an_error_of_the_server_gives_nothing() {
        QCOMPARE(fetched(withBody("no such page", "404 Not Found")), std::optional(QByteArray()));
    }
    void an_answer_that_is_no_http_gives_nothing() {
        QCOMPARE(fetched("garbage\r\n\r\n"), std::optional(QByteArray()));
    }
    void a_truncated_body_gives_nothing() {
        QCOMPARE(fetched("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nshort"), std::optional(QByteArray()));
    }
    void a_host_that_is_not_there_gives_nothing() {
        QObject receiver;
        std::optional<QByteArray> body;
        Download::start(receiver, QStringLiteral("http://127.0.0.1:1/x"), 10,
                        [&](const QByteArray& bytes) { body = bytes; });
        QTRY_VERIFY(body.has_value());
        QCOMPARE(*body, QByteArray());
    }
    void nothing_is_called_once_the_receiver_is_gone() {
        OneAnswer server(withBody("x"));
        bool called = false;
        auto receiver = std::make_unique<QObject>();
        Download::start(*receiver, server.address(), 10, [&](const QByteArray&) { called = true; });
        receiver.reset();
        QTest::qWait(200);
        QVERIFY(!called);
    }
};

TORVANE_GUILESS_TEST(DownloadTest)
#include "DownloadTest.moc"
