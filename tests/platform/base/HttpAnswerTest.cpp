// SPDX-License-Identifier: MIT
// Reading the answers of servers from bytes: the same result however they are cut, and a limit to everything
// that a server may send.
#include "platform/base/HttpAnswer.h"
#include "support/TestMain.h"

#include <optional>

using namespace torvane;

namespace {
const QByteArray ok = "HTTP/1.1 200 OK\r\n";
const QByteArray chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
constexpr qint64 longest = 100;

QByteArray rowName(const char* bytes) { return QByteArray(bytes).toPercentEncoding(" :;,+"); }

// The body of an answer that arrives in blocks of a size, after which the server closes; nothing if it is not
// whole.
std::optional<QByteArray> bodyOf(const QByteArray& bytes, qsizetype blockSize = 1 << 20) {
    HttpAnswer answer(longest);
    for (qsizetype at = 0; at < bytes.size(); at += blockSize) answer.take(bytes.mid(at, blockSize));
    answer.takeEnd();
    if (answer.isWhole() == answer.isBroken()) qFatal("either whole or broken");
    return answer.isWhole() ? std::optional(answer.takeBody()) : std::nullopt;
}
} // namespace

class HttpAnswerTest : public QObject {
    Q_OBJECT

private slots:
    void an_answer_reads_the_same_in_blocks_of_any_size_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("with a length") << ok + "Content-Length: 4\r\n\r\nbody" << QByteArray("body");
        QTest::newRow("to the end") << ok + "\r\nbo\r\n\r\ndy" << QByteArray("bo\r\n\r\ndy");
        QTest::newRow("line feeds alone")
            << QByteArray("HTTP/1.0 200\nContent-Length:4\n\nbody") << QByteArray("body");
        QTest::newRow("chunks") << chunked + "3\r\nbod\r\n1\r\ny\r\n0\r\n\r\n" << QByteArray("body");
        QTest::newRow("chunks with more") << chunked + "03;a=b\r\nbod\r\n1 ;c\r\ny\r\n000\r\nD: e\r\n\r\n"
                                          << QByteArray("body");
        QTest::newRow("large digits") << chunked + "A\r\n0123456789\r\na\r\n0123456789\r\n0\r\n\r\n"
                                      << QByteArray("01234567890123456789");
        QTest::newRow("first another status")
            << "HTTP/1.1 103 Hints\r\nContent-Length: 9\r\n\r\n" + ok + "\r\nbody" << QByteArray("body");
        QTest::newRow("no body at all")
            << QByteArray("HTTP/1.1 204 None\r\nContent-Length: 9\r\n\r\n") << QByteArray();
        QTest::newRow("as long as may be")
            << ok + "Content-Length: 100\r\n\r\n" + QByteArray(100, 'x') << QByteArray(100, 'x');
    }
    void an_answer_reads_the_same_in_blocks_of_any_size() {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, body);
        for (qsizetype size = 1; size <= bytes.size(); ++size)
            QCOMPARE(bodyOf(bytes, size), std::optional(body));
    }
    void an_answer_with_a_frame_that_is_cut_anywhere_is_broken_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("with a length") << ok + "Content-Length: 4\r\n\r\nbody";
        QTest::newRow("chunks") << chunked + "3\r\nbod\r\n1\r\ny\r\n0\r\nD: e\r\n\r\n";
    }
    void an_answer_with_a_frame_that_is_cut_anywhere_is_broken() {
        QFETCH(QByteArray, bytes);
        for (qsizetype size = 0; size < bytes.size(); ++size) QVERIFY(!bodyOf(bytes.left(size)));
        QVERIFY(bodyOf(bytes));
    }
    void what_is_no_proper_answer_is_broken_data() {
        QTest::addColumn<QByteArray>("bytes");
        for (const char* status :
             {"", "HTTP/2 200 OK", "HTTP/1.1 20", "HTTP/1.1 2000", "HTTP/1.1 099 X", "HTTP/1.1 abc",
              "HTTP/1.1 -10", "ICY 200 OK", " HTTP/1.1 200 OK", "HTTP/1.1 101 Other"}) {
            QTest::newRow(status) << QByteArray(status) + "\r\n\r\nbody";
        }
        for (const char* field :
             {"no colon", ": no name", " a: continued", "a b: blank", "Content-Length:", "Content-Length: +4",
              "Content-Length: 4\r\ncontent-length: 4", "Content-Length: 0x4", "Content-Length: 101",
              "Transfer-Encoding: gzip", "Transfer-Encoding: gzip, chunked", "Content-Encoding: gzip"}) {
            QTest::newRow(rowName(field)) << ok + field + "\r\n\r\nbody";
        }
        for (const char* chunk :
             {"-4\r\nbody\r\n0\r\n\r\n", "0x4\r\nbody\r\n0\r\n\r\n", "\r\nbody\r\n0\r\n\r\n",
              "3\r\nbody\r\n0\r\n\r\n", "ffffffffffffffff\r\nbody", "65\r\nbody"}) {
            QTest::newRow(rowName(chunk)) << chunked + chunk;
        }
        QTest::newRow("chunks above the limit")
            << chunked + "64\r\n" + QByteArray(100, 'x') + "\r\n1\r\nx\r\n0\r\n\r\n";
        QTest::newRow("above the limit to the end") << ok + "\r\n" + QByteArray(101, 'x');
    }
    void what_is_no_proper_answer_is_broken() {
        QFETCH(QByteArray, bytes);
        QVERIFY(!bodyOf(bytes));
        QVERIFY(!bodyOf(bytes, 1));
    }
    void an_endless_header_ends_after_64_KiB_data() {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("again");
        QTest::newRow("status") << QByteArray("HTTP/1.1 200 ") << QByteArray("x");
        QTest::newRow("one line") << ok + "a: " << QByteArray("x");
        QTest::newRow("many lines") << ok << QByteArray("a: b\r\n");
        QTest::newRow("many answers to come") << QByteArray() << QByteArray("HTTP/1.1 100 Wait\r\n\r\n");
        QTest::newRow("length of a chunk") << chunked << QByteArray("0");
        QTest::newRow("trailer") << chunked + "0\r\n" << QByteArray("a: b\r\n");
    }
    void an_endless_header_ends_after_64_KiB() {
        QFETCH(QByteArray, start);
        QFETCH(QByteArray, again);
        HttpAnswer answer(longest);
        answer.take(start);
        qsizetype sent = start.size();
        for (; !answer.isBroken() && sent < (1 << 20); sent += again.size()) answer.take(again);
        QVERIFY(answer.isBroken());
        QVERIFY(sent <= 65 * 1024);
    }
    void after_a_reset_only_what_was_whole_before_is_whole() {
        HttpAnswer endless(longest);
        endless.take("HTTP/1.1 200 OK\r\n\r\nbody");
        endless.takeReset();
        QVERIFY(endless.isBroken());
        HttpAnswer counted(longest);
        counted.take("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nbody");
        counted.takeReset();
        QVERIFY(counted.isWhole());
    }
    void a_redirect_is_whole_without_its_body_and_names_its_target() {
        HttpAnswer answer(longest);
        answer.take("HTTP/1.1 302 Found\r\nContent-Length: 999\r\nLOCATION:  /there \r\n\r\n");
        QVERIFY(answer.isWhole());
        QCOMPARE(answer.status(), 302);
        QCOMPARE(answer.redirect(), "/there");
    }
    void only_a_redirect_has_a_target() {
        HttpAnswer answer(longest);
        answer.take("HTTP/1.1 201 Made\r\nContent-Length: 0\r\nLocation: /there\r\n\r\n");
        QVERIFY(answer.isWhole());
        QCOMPARE(answer.redirect(), "");
    }
};

TORVANE_APPLESS_TEST(HttpAnswerTest)
#include "HttpAnswerTest.moc"
