// SPDX-License-Identifier: MIT
// Fetching small files from a server on this machine: what arrives, and what every failure gives.
#include "platform/forms/Download.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"
#include "support/WebServer.h"

#include <memory>
#include <optional>

using namespace torvane;

class DownloadTest : public QObject {
    Q_OBJECT

    // The body that an answer gives; nothing if none came within five seconds.
    std::optional<QByteArray> fetched(const QByteArray& answer, qint64 limit = 1000) {
        const WebServer server(answer);
        QObject receiver;
        std::optional<QByteArray> body;
        Download::start(receiver, server.address(), limit, [&](const QByteArray& bytes) { body = bytes; });
        [&] { QTRY_VERIFY(body.has_value()); }();
        return body;
    }

private slots:
    void a_body_arrives_byte_for_byte() {
        const QByteArray body("a\0b\xFF\r\n", 6);
        QCOMPARE(fetched(answerOf(body)), std::optional(body));
    }
    void a_body_of_exactly_the_limit_arrives() {
        QCOMPARE(fetched(answerOf(QByteArray(1000, 'x'))), std::optional(QByteArray(1000, 'x')));
    }
    void a_longer_body_counts_as_a_failure() {
        QCOMPARE(fetched(answerOf(QByteArray(1001, 'x'))), std::optional(QByteArray()));
    }
    void an_error_of_the_server_gives_nothing() {
        QCOMPARE(fetched(answerOf("no such page", "404 Not Found")), std::optional(QByteArray()));
    }
    void an_answer_that_is_no_http_gives_nothing() {
        QCOMPARE(fetched("garbage\r\n\r\n"), std::optional(QByteArray()));
    }
    void a_truncated_body_gives_nothing() {
        QCOMPARE(fetched("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nshort"), std::optional(QByteArray()));
    }
    void half_an_error_page_gives_nothing() {
        QCOMPARE(fetched("HTTP/1.1 404 No\r\nContent-Length: 100\r\n\r\nshort"), std::optional(QByteArray()));
    }
    void a_redirect_to_a_file_gives_nothing() {
        const TestFolder folder;
        const QByteArray file = folder.write(QStringLiteral("banner.swf"), "x").toUtf8();
        const QByteArray target = "Location: file://" + file + "\r\n";
        QCOMPARE(fetched(answerOf("", "302 Found", target)), std::optional(QByteArray()));
        QCOMPARE(fetched(answerOf("moved", "302 Found")), std::optional(QByteArray("moved")));
    }
    void a_file_gives_nothing() {
        const TestFolder folder;
        QObject receiver;
        std::optional<QByteArray> body;
        Download::start(receiver, QStringLiteral("file://") + folder.write(QStringLiteral("banner.swf"), "x"),
                        10, [&](const QByteArray& bytes) { body = bytes; });
        QTRY_VERIFY(body.has_value());
        QCOMPARE(*body, QByteArray());
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
        const WebServer server(answerOf("x"));
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
