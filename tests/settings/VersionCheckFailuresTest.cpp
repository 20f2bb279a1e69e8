// SPDX-License-Identifier: MIT
// The version check with hostile servers and on bad days of the disk.
#include "support/Failing.h"
#include "support/OpenedVersionCheck.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class VersionCheckFailuresTest : public OpenedVersionCheck {
    Q_OBJECT

    const QByteArray old = versionFile("0.9");

    // A check with a server that the test can wait for, and a local copy from before.
    void checkWith(const WebServer& server) {
        world().folder.write(u"data/version.dat"_s, old);
        useServer(server);
        openPanel();
        TransferLimits limits = panel().Inet1.limits();
        limits.silenceMilliseconds = 300;
        panel().Inet1.setLimits(limits);
        check();
    }
    // With a folder that cannot be written and a version from before.
    void checkInClosedFolder(const QByteArray& body, const QByteArray& before) {
        world().folder.write(u"data/version.dat"_s, before);
        publish(body);
        openPanel();
        world().folder.setMode(u"data/version.dat"_s, 0444);
        world().folder.setMode(u"data"_s, 0555);
        const OrdinaryUser user;
        check();
    }
    void expectWriteReported() const {
        QVERIFY(!messages().boxes.isEmpty());
        QVERIFY2(messages().boxes.first().text.contains(u"version.dat"_s),
                 qPrintable(messages().boxes.first().text));
        QCOMPARE(messages().boxes.first().flags, 16);
    }

private slots:
    void init() { start(); }
    void cleanup() {
        world().folder.setMode(u"data"_s, 0755);
        end();
    }

    // Servers
    void a_server_that_fails_is_reported_and_the_old_file_stays_data() {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("nothing at all") << QByteArray();
        QTest::newRow("no HTTP") << "220 ftp.example ready\r\n"_ba;
        QTest::newRow("cut body") << "HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\n[Torvane]\r\nLast"_ba;
        QTest::newRow("cut chunks") << "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\n[Torv"_ba;
        QTest::newRow("two lengths")
            << "HTTP/1.1 200 OK\r\nContent-Length: 1\r\nContent-Length: 2\r\n\r\nab"_ba;
        QTest::newRow("packed")
            << "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 2\r\n\r\n\x1F\x8B"_ba;
        QTest::newRow("to a file") << "HTTP/1.1 302 Found\r\nLocation: file:///etc/passwd\r\n\r\n"_ba;
        QTest::newRow("header of 1 MiB") << "HTTP/1.1 200 OK\r\nX: " + QByteArray(1 << 20, 'x');
        QTest::newRow("body beyond any version file")
            << "HTTP/1.1 200 OK\r\nContent-Length: 5000000\r\n\r\n" + QByteArray(5000000, 'x');
    }
    void a_server_that_fails_is_reported_and_the_old_file_stays() {
        QFETCH(QByteArray, answer);
        const WebServer server(WebServer::saying(answer));
        checkWith(server);
        expectUnreachable();
        QCOMPARE(copy(), old);
    }
    void a_silent_server_is_reported_after_its_time() {
        const WebServer server([](QTcpSocket&, const QByteArray&) {});
        checkWith(server);
        expectUnreachable();
        QCOMPARE(copy(), old);
    }
    void a_reset_connection_is_reported() {
        const WebServer server(WebServer::breakingOffAfter("HTTP/1.1 200 OK\r\n"));
        checkWith(server);
        expectUnreachable();
        QCOMPARE(copy(), old);
    }
    void an_endless_body_is_reported_and_fills_no_disk() {
        const WebServer server([](QTcpSocket& client, const QByteArray&) {
            client.write("HTTP/1.1 200 OK\r\n\r\n");
            QObject::connect(&client, &QTcpSocket::bytesWritten, &client,
                             [&client] { client.write(QByteArray(100000, '[')); });
            client.write("[");
        });
        checkWith(server);
        expectUnreachable();
        QCOMPARE(copy(), old);
    }
    void a_host_that_does_not_answer_is_reported_data() {
        QTest::addColumn<QByteArray>("host");
        QTest::newRow("nobody listens") << "http://127.0.0.1:1"_ba;
        QTest::newRow("no such name") << "http://no-such-host.invalid"_ba;
        QTest::newRow("other kind") << "ftp://update.example"_ba;
    }
    void a_host_that_does_not_answer_is_reported() {
        QFETCH(QByteArray, host);
        world().folder.write(u"data/hosts.ini"_s, "[Hosts]\r\nupdate=" + host + "\r\n");
        openPanel();
        check();
        expectUnreachable();
        QCOMPARE(copy(), "(unreadable)"_ba);
    }
    void a_host_that_is_a_folder_without_the_file_is_reported() {
        openPanel();
        check();
        expectUnreachable();
        publish(versionFile("1.1"));
        check();
        expectNothingNew(2);
    }
    void the_failure_is_reported_in_the_language() {
        world().useLanguage("cat");
        openPanel();
        check();
        expectUnreachable();
    }

    // Bodies
    void a_body_without_a_version_is_nothing_new_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("empty version") << versionFile("");
        QTest::newRow("no key") << "[Torvane]\r\n"_ba;
        QTest::newRow("a page") << "<html><h1>404 Not Found</h1></html>"_ba;
        QTest::newRow("binary") << QByteArray("\x7F"
                                              "ELF\0\0\r\n[[[[\0=\xFF",
                                              16);
        QTest::newRow("an open section") << "[Torvane\r\nLastVersion=9"_ba;
        QTest::newRow("in another section") << "[Other]\r\nLastVersion=9\r\n"_ba;
        QTest::newRow("a million sections")
            << QByteArray("[a]\n").repeated(1 << 20).first(VersionFile::longestBody);
    }
    void a_body_without_a_version_is_nothing_new() {
        QFETCH(QByteArray, body);
        const WebServer server(answerOf(body));
        checkWith(server);
        expectNothingNew();
        QCOMPARE(copy(), body + "\r\n");
    }
    void an_error_page_with_a_version_counts_like_any_body() {
        const WebServer server(answerOf(versionFile("2.0"), "503 Service Unavailable"));
        checkWith(server);
        QVERIFY(messages().last().contains(u"Torvane 2.0\r\n"_s));
    }
    void a_version_of_1_mib_is_offered_in_a_box_of_ordinary_size() {
        const WebServer server(answerOf(versionFile(QByteArray(1 << 20, '9'))));
        checkWith(server);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().boxes.first().flags, 36);
        QVERIFY(messages().last().contains(u"Torvane 9999"_s));
        QVERIFY2(messages().last().size() < 300, qPrintable(QString::number(messages().last().size())));
    }
    void markup_in_a_version_is_plain_text_and_opens_no_address_of_its_own() {
        messages().answer = MsgBoxFlags::answerYes;
        const WebServer server(answerOf(versionFile("<b>2.0</b> & %1 $(x)")));
        checkWith(server);
        QVERIFY(messages().last().contains(u"\r\n\r\nTorvane <b>2.0</b> & %1 $(x)\r\n\r\n"_s));
        QCOMPARE(world().browser.urls, QStringList{server.address(u"/index.php?section=torvane"_s)});
    }

    // The disk
    // The folder goes once the server has been asked: without it nobody knows the server.
    void without_the_data_folder_the_check_ends_with_nothing_new_and_no_other_word() {
        const QString data = world().folder.path(u"data"_s);
        const QString away = world().folder.path(u"away"_s);
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            QVERIFY(QDir().rename(data, away));
            client.write(answerOf(versionFile("2.0")));
            client.disconnectFromHost();
        });
        useServer(server);
        openPanel();
        check();
        QVERIFY(!QFile::exists(data));
        QVERIFY(QDir().rename(away, data));
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().boxes.first().flags, 64);
        QCOMPARE(copy(), "(unreadable)"_ba);
    }
    void a_read_only_folder_is_reported_and_the_file_is_read_as_it_is_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<bool>("isNews");
        QTest::newRow("nothing new in it") << versionFile("1.0") << false;
        QTest::newRow("news in it") << versionFile("3.0") << true;
        QTest::newRow("nothing in it") << QByteArray() << false;
    }
    void a_read_only_folder_is_reported_and_the_file_is_read_as_it_is() {
        QFETCH(QByteArray, before);
        QFETCH(bool, isNews);
        checkInClosedFolder(versionFile("2.0"), before);
        expectWriteReported();
        QCOMPARE(messages().boxes.size(), 2);
        QCOMPARE(messages().boxes.last().flags, isNews ? 36 : 64);
        if (isNews) QVERIFY(messages().last().contains(u"Torvane 3.0"_s));
        QCOMPARE(copy(), before);
        expectUsable();
    }
    void a_full_disk_is_reported_and_the_old_file_stays_data() {
        QTest::addColumn<int>("room");
        for (const int room : {0, 1, 20}) QTest::addRow("%d bytes", room) << room;
    }
    void a_full_disk_is_reported_and_the_old_file_stays() {
        QFETCH(int, room);
        world().folder.write(u"data/version.dat"_s, old);
        publish(versionFile("2.0"));
        openPanel();
        {
            const FullDisk full(static_cast<rlim_t>(room));
            check();
        }
        expectWriteReported();
        expectNothingNew(2);
        QCOMPARE(copy(), old);
    }
    void what_is_no_file_stays_in_its_place_data() {
        QTest::addColumn<mode_t>("kind");
        QTest::newRow("folder") << mode_t{S_IFDIR};
        QTest::newRow("pipe") << mode_t{S_IFIFO};
    }
    void what_is_no_file_stays_in_its_place() {
        QFETCH(mode_t, kind);
        const QByteArray path = world().folder.native("data/version.dat");
        QCOMPARE(kind == S_IFDIR ? mkdir(path, 0777) : mkfifo(path, 0666), 0);
        checkAgainst(versionFile("2.0"));
        expectWriteReported();
        expectNothingNew(2);
        struct stat info {};
        QCOMPARE(lstat(path, &info), 0);
        QCOMPARE(info.st_mode & S_IFMT, kind);
    }
};

TORVANE_TEST(VersionCheckFailuresTest)
#include "VersionCheckFailuresTest.moc"
