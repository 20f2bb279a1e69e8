// SPDX-License-Identifier: MIT
// What a download gives: bodies that arrive whole, byte for byte, and a failure for all others.
#include "support/InetFixture.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
constexpr int invalidCall = RuntimeFailure::invalidCall;

QByteArray everyByte() {
    QByteArray bytes;
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    return bytes;
}

const QByteArray open200 = "HTTP/1.1 200 OK\r\n"; // to be followed by more header lines
const QByteArray chunked = open200 + "Transfer-Encoding: chunked\r\n\r\n";

// Writes one byte at a time.
void trickle(QTcpSocket& client, const QByteArray& bytes, int milliseconds) {
    if (bytes.isEmpty()) return client.disconnectFromHost();
    client.write(bytes.left(1));
    QTimer::singleShot(milliseconds, &client, [&client, rest = bytes.sliced(1), milliseconds] {
        trickle(client, rest, milliseconds);
    });
}

// Writes as fast as the other side reads.
void pour(QTcpSocket& client, const QByteArray& block) {
    QObject::connect(&client, &QTcpSocket::bytesWritten, &client, [&client, block] {
        if (client.bytesToWrite() == 0) client.write(block);
    });
    client.write(block);
}
} // namespace

class InetTest : public QObject {
    Q_OBJECT

    FakeDesktop world;
    std::unique_ptr<InetForm> form;

    Fetched from(const WebServer& server) { return fetched(form->down, server.address()); }
    Fetched from(const QByteArray& answer) { return from(WebServer(answer)); }
    Fetched from(const WebServer::Answer& answer) { return from(WebServer(answer)); }

private slots:
    void init() {
        form = std::make_unique<InetForm>(world.runtime);
        form->down.setLimits(smallLimits);
    }
    void cleanup() { form.reset(); }

    void a_download_ends_after_20_seconds_of_silence_256_MiB_and_5_redirects_by_default() {
        const Inet::Limits limits = InetForm(world.runtime).down.limits();
        QCOMPARE(limits.silenceMilliseconds, 20000);
        QCOMPARE(limits.bytes, 268435456);
        QCOMPARE(limits.redirects, 5);
    }

    void a_body_arrives_byte_for_byte_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("zero") << QByteArray(1, '\0');
        QTest::newRow("every byte") << everyByte();
        QTest::newRow("lines of all kinds") << QByteArray("a\r\nb\nc\rd\r\n\r\n");
        QTest::newRow("exactly the limit") << QByteArray(1 << 20, 'x');
    }
    void a_body_arrives_byte_for_byte() {
        QFETCH(QByteArray, body);
        const Fetched result = from(answerOf(body));
        QCOMPARE(result.failure, 0);
        QCOMPARE(result.body, body);
    }
    void chunks_are_put_together() {
        QCOMPARE(from(chunked + "3\r\nabc\r\n2\r\n\r\n\r\n0\r\n\r\n").body, "abc\r\n");
    }
    void a_body_without_a_length_lasts_until_the_server_closes() {
        QCOMPARE(from("HTTP/1.0 200 OK\r\n\r\n" + everyByte()).body, everyByte());
    }
    void a_body_ends_where_its_length_says_data() {
        QTest::addColumn<QByteArray>("rest");
        QTest::newRow("nothing more") << QByteArray();
        QTest::newRow("more than announced") << QByteArray("too much");
    }
    void a_body_ends_where_its_length_says() {
        QFETCH(QByteArray, rest);
        QCOMPARE(from(open200 + "Content-Length: 4\r\n\r\nbody" + rest).body, "body");
    }
    void an_error_page_is_a_body_like_any_other_data() {
        QTest::addColumn<QByteArray>("status");
        for (const char* status : {"203 Other", "300 Choices", "304 Same", "400 Bad", "401 Who?", "403 No",
                                   "404 Not Found", "405 Not so", "407 Proxy", "409 Conflict", "410 Gone",
                                   "418 Teapot", "500 Oops", "501 What?", "503 Later", "599 Own"}) {
            QTest::newRow(status) << QByteArray(status);
        }
    }
    void an_error_page_is_a_body_like_any_other() {
        QFETCH(QByteArray, status);
        const bool isBodiless = status.startsWith("304");
        const Fetched result = from(answerOf(isBodiless ? "" : "<h1>No</h1>", status));
        QCOMPARE(result.failure, 0);
        QCOMPARE(result.body, isBodiless ? "" : "<h1>No</h1>");
    }
    void a_server_that_wants_a_password_gets_none_and_its_page_is_the_body() {
        const QByteArray basic = "WWW-Authenticate: Basic realm=\"us\"\r\n";
        QCOMPARE(from(answerOf("<h1>Who?</h1>", "401 Who?", basic)).body, "<h1>Who?</h1>");
    }
    void a_byte_in_time_keeps_a_slow_server_going() {
        QElapsedTimer clock;
        clock.start();
        const auto slow = [](QTcpSocket& client, const QByteArray&) {
            client.write(open200 + "Content-Length: 12\r\n\r\n");
            trickle(client, "twelve bytes", 40);
        };
        QCOMPARE(from(slow).body, "twelve bytes");
        QVERIFY(clock.elapsed() > smallLimits.silenceMilliseconds);
    }

    void an_answer_that_does_not_arrive_whole_is_a_failure_data() {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("nothing at all") << QByteArray();
        QTest::newRow("no HTTP") << QByteArray("garbage\r\n\r\n");
        QTest::newRow("half a status") << QByteArray("HTTP/1.1 2");
        QTest::newRow("half a header") << open200 + "Content-Le";
        QTest::newRow("half a body") << open200 + "Content-Length: 10\r\n\r\nfive!";
        QTest::newRow("no body") << open200 + "Content-Length: 10\r\n\r\n";
        QTest::newRow("half an error page") << QByteArray("HTTP/1.1 404 No\r\nContent-Length: 9\r\n\r\n<h1>");
        QTest::newRow("half a chunk") << chunked + "a\r\nfive!";
        QTest::newRow("no last chunk") << chunked + "5\r\nfive!\r\n";
        QTest::newRow("half a length of a chunk") << chunked + "5\r\nfive!\r\n5";
        QTest::newRow("no length of a chunk") << chunked + "zz\r\nfive!\r\n0\r\n\r\n";
    }
    void an_answer_that_does_not_arrive_whole_is_a_failure() {
        QFETCH(QByteArray, answer);
        QCOMPARE(from(answer).failure, deviceError);
    }
    void a_reset_in_the_middle_of_a_body_is_a_failure_data() {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("with a length") << open200 + "Content-Length: 10\r\n\r\nfive!";
        QTest::newRow("in chunks") << chunked + "5\r\nfive!\r\n";
        QTest::newRow("without a length") << open200 + "\r\nfive!";
        QTest::newRow("without a length, long") << open200 + "\r\n" + QByteArray(500'000, 'x');
        QTest::newRow("without a length, nothing yet") << open200 + "\r\n";
    }
    void a_reset_in_the_middle_of_a_body_is_a_failure() {
        QFETCH(QByteArray, answer);
        QCOMPARE(from(WebServer::breakingOffAfter(answer)).failure, deviceError);
    }
    void a_reset_after_a_whole_body_does_no_harm() {
        QCOMPARE(from(WebServer::breakingOffAfter(answerOf("body"))).body, "body");
    }
    void a_reset_is_never_taken_for_the_end_of_a_body_nor_the_end_for_a_reset() {
        const QByteArray answer = open200 + "\r\nfive!";
        const WebServer resetting([&](QTcpSocket& client, const QByteArray&) {
            client.write(answer);
            client.flush();
            WebServer::reset(client);
        });
        const WebServer closing(answer);
        for (int i = 0; i < 200; ++i) {
            QCOMPARE(from(resetting).failure, deviceError);
            QCOMPARE(from(closing).body, "five!");
        }
    }
    void silence_is_a_failure_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::newRow("from the start") << QByteArray();
        QTest::newRow("in the header") << open200 + "Content-";
        QTest::newRow("after the header") << open200 + "Content-Length: 10\r\n\r\n";
        QTest::newRow("in the body") << open200 + "Content-Length: 10\r\n\r\nfive!";
        QTest::newRow("between chunks") << chunked + "5\r\nfive!\r\n";
        QTest::newRow("without a length") << open200 + "\r\nfive!";
    }
    void silence_is_a_failure() {
        QFETCH(QByteArray, before);
        form->down.setLimits({.silenceMilliseconds = 80});
        const auto silent = [before](QTcpSocket& client, const QByteArray&) { client.write(before); };
        QCOMPARE(from(silent).failure, deviceError);
    }

    void a_body_beyond_the_limit_is_a_failure_data() {
        QTest::addColumn<QByteArray>("header");
        QTest::addColumn<QByteArray>("block");
        QTest::newRow("announced") << open200 + "Content-Length: 1048577\r\n\r\n" << QByteArray();
        QTest::newRow("endless") << open200 + "\r\n" << QByteArray(1 << 16, 'x');
        QTest::newRow("endless chunks") << chunked << "8000\r\n" + QByteArray(0x8000, 'x') + "\r\n";
    }
    void a_body_beyond_the_limit_is_a_failure() {
        QFETCH(QByteArray, header);
        QFETCH(QByteArray, block);
        form->down.setLimits({.bytes = 1 << 20});
        const auto answer = [&](QTcpSocket& client, const QByteArray&) {
            client.write(header);
            if (!block.isEmpty()) pour(client, block);
        };
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(from(answer).failure, deviceError);
        QVERIFY(clock.elapsed() < 10000); // and not by the silence after it
    }
    void a_length_that_is_no_number_is_a_failure_data() {
        QTest::addColumn<QByteArray>("length");
        for (const char* length : {"many", "-4", "4.0", "0x4", "4, 5", "99999999999999999999"}) {
            QTest::newRow(length) << QByteArray(length);
        }
    }
    void a_length_that_is_no_number_is_a_failure() {
        QFETCH(QByteArray, length);
        QCOMPARE(from(open200 + "Content-Length: " + length + "\r\n\r\nbody").failure, deviceError);
    }
    void a_compressed_body_is_not_asked_for_and_not_unpacked() {
        const QByteArray bomb = qCompress(QByteArray(4 << 20, ' ')).sliced(4); // 1000 times smaller
        for (const char* encoding : {"deflate", "gzip", "br", "zstd", "gzip, deflate", "GZIP"}) {
            const QByteArray header = QByteArray("Content-Encoding: ") + encoding + "\r\n";
            const WebServer server(answerOf(bomb, "200 OK", header));
            QCOMPARE(from(server).failure, deviceError);
            QVERIFY(server.requests.value(0).contains("Accept-Encoding: identity\r\n"));
        }
        QCOMPARE(from(answerOf("plain", "200 OK", "Content-Encoding: identity\r\n")).body, "plain");
    }

    void an_address_that_nobody_answers_is_a_failure_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("no such host") << u"http://nowhere.invalid/online_db.txt"_s;
        QTest::newRow("nothing listens") << u"http://127.0.0.1:1/online_db.txt"_s;
        QTest::newRow("nothing listens, https") << u"https://127.0.0.1:1/online_db.txt"_s;
    }
    void an_address_that_nobody_answers_is_a_failure() {
        QFETCH(QString, address);
        QCOMPARE(fetched(form->down, address).failure, deviceError);
    }
    void other_kinds_of_addresses_are_refused_data() {
        QTest::addColumn<QString>("address");
        for (const char* address :
             {"", "/online_db.txt", "online_db.txt", "http:", "http://", "http:///x", "ftp://127.0.0.1/x",
              "data:text/plain,x", "qrc:/x", "about:blank", "javascript:1", "file:", "file:x",
              "file://other.invalid/x", "file:///a%00b", "http://[bad/x", "c:\\online_db.txt"}) {
            QTest::newRow(address) << QString::fromLatin1(address);
        }
    }
    void other_kinds_of_addresses_are_refused() {
        QFETCH(QString, address);
        QCOMPARE(fetched(form->down, address).failure, invalidCall);
    }
    void a_second_download_is_refused_while_one_is_running() {
        const WebServer server(answerOf("first"));
        int second = 0;
        QTimer::singleShot(0, form.get(), [&] { second = fetched(form->down, server.address()).failure; });
        QCOMPARE(from(server).body, "first");
        QCOMPARE(second, invalidCall);
        QCOMPARE(from(server).body, "first");
    }
};

TORVANE_TEST(InetTest)
#include "InetTest.moc"
