// SPDX-License-Identifier: MIT
// The update of the shared list: what is fetched, compared and written, and what happens when that fails.
#include "support/OpenedWeblist.h"
#include "support/TestMain.h"
#include "support/WebServer.h"

#include <fcntl.h>
#include <sys/stat.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class URLUpdateTest : public OpenedWeblist {
    Q_OBJECT

    // The same in every language.
    const QString newestText =
        u"La lista de URLs no se puede actualizar, ya es la última versión que existe."_s;
    const QString failureText = u"Error mientras se descargaba. No se puede actualizar."_s;

    // Inode and modification time of the shared list, which change even if its own bytes are written again.
    using Stamp = std::pair<ino_t, timespec>;
    Stamp untouched;

    Stamp stamp() const {
        struct stat info {};
        if (stat(folder().native("data/url.dat").constData(), &info) != 0) qFatal("no shared list");
        return {info.st_ino, info.st_mtim};
    }
    // Opens the list of files that were written long ago: a change now has another time even with a coarse
    // clock.
    void openOldList(const QByteArray& sharedPages, const QByteArray& personalPages = {}) {
        openList(sharedPages, personalPages);
        const timespec times[2] = {{0, UTIME_OMIT}, {1'000'000'000, 0}};
        if (utimensat(AT_FDCWD, folder().native("data/url.dat").constData(), times, 0) != 0)
            qFatal("can't set the time");
        untouched = stamp();
    }
    void checkUntouched() const {
        const Stamp now = stamp();
        QCOMPARE(now.first, untouched.first);
        QCOMPARE(now.second.tv_sec, untouched.second.tv_sec);
        QCOMPARE(now.second.tv_nsec, untouched.second.tv_nsec);
    }
    // Opens the list of a shared page with a server as its host, and updates it.
    void updateFrom(const WebServer& server) {
        useServer(server.address(QString()));
        openOldList(pandocs, mine);
        clickUpdate();
    }
    // The same with a server that answers as soon as the test has seen what it wants to see.
    void updateWhile(const std::function<void()>& look, const QByteArray& body) {
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            look();
            client.write(answerOf(body));
            client.disconnectFromHost();
        });
        updateFrom(server);
    }
    void checkFailed() {
        QCOMPARE(boxes(), QStringList{failureText});
        QCOMPARE(messages().boxes.first().flags, MsgBoxFlags::okOnly);
        QCOMPARE(messages().boxes.first().title, QString());
        QCOMPARE(shared(), pandocs);
        checkUntouched();
        for (const QString& name : files()) QVERIFY(!name.startsWith(u'.'));
        QCOMPARE(rows(), (QStringList{u"Pan Docs"_s, u"Mine"_s}));
        checkIsUsable();
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // What it does
    void a_newer_list_replaces_the_file_with_a_line_end_and_is_listed() {
        publish(pandocs + emulator);
        openList(pandocs, mine);
        const URL* old = &window();
        clickUpdate();
        QCOMPARE(shared(), pandocs + emulator + "\r\n");
        QCOMPARE(boxes(), QStringList{text("updatefinished")});
        QVERIFY(&window() != old);
        QVERIFY(window().isVisible() && !main().isVisible());
        QCOMPARE(rows(), (QStringList{u"Pan Docs"_s, u"An emulator"_s, u"Mine"_s}));
        QCOMPARE(personal(), mine);
        checkIsUsable();
    }
    void the_same_bytes_as_a_freshly_installed_file_are_the_newest_and_it_is_not_touched() {
        publish(pandocs);
        openOldList(pandocs);
        clickUpdate();
        QCOMPARE(boxes(), QStringList{newestText});
        QCOMPARE(messages().boxes.first().title, QString());
        QCOMPARE(shared(), pandocs);
        checkUntouched();
        checkIsUsable();
    }
    void after_one_update_every_later_one_writes_again_and_reports_success() {
        publish(pandocs);
        openList({});
        for (int i = 0; i < 3; ++i) {
            clickUpdate();
            collectGone();
            QCOMPARE(shared(), pandocs + "\r\n");
        }
        QCOMPARE(boxes(), QStringList(3, text("updatefinished")));
    }
    void an_empty_answer_is_a_failure() {
        publish("");
        openOldList(pandocs, mine);
        clickUpdate();
        checkFailed();
    }
    void an_empty_answer_equals_an_empty_file() {
        publish("");
        openOldList({});
        clickUpdate();
        QCOMPARE(boxes(), QStringList{newestText});
        checkUntouched();
    }
    void a_missing_file_is_written() {
        publish(pandocs);
        openList(emulator);
        QVERIFY(QFile::remove(folder().path(u"data/url.dat"_s)));
        clickUpdate();
        QCOMPARE(shared(), pandocs + "\r\n");
        QCOMPARE(rows(), QStringList{u"Pan Docs"_s});
    }
    void a_file_that_is_too_large_is_replaced() {
        publish(pandocs);
        openList(emulator);
        QFile sparse(folder().path(u"data/url.dat"_s));
        QVERIFY(sparse.resize(100 << 20));
        clickUpdate();
        QCOMPARE(shared(), pandocs + "\r\n");
        checkIsUsable();
    }
    void an_empty_answer_is_a_failure_also_over_a_file_that_is_too_large() {
        publish("");
        openList(emulator);
        QFile sparse(folder().path(u"data/url.dat"_s));
        QVERIFY(sparse.resize(100 << 20));
        untouched = stamp();
        clickUpdate();
        QCOMPARE(boxes(), QStringList{failureText});
        checkUntouched();
    }
    void the_tree_brings_a_newer_list_for_a_copy_without_a_network() {
        const QString tree = QStringLiteral(TORVANE_TREE_DIR "/data/site/url.dat");
        folder().makeFolder(u"data/site"_s);
        QVERIFY(QFile::copy(tree, folder().path(u"data/site/url.dat"_s)));
        opened->open();
        clickList();
        const qsizetype before = rows().size();
        clickUpdate();
        QCOMPARE(boxes(), QStringList{text("updatefinished")});
        QCOMPARE(rows().size(), before + 3);
    }
    void the_fixed_boxes_are_the_same_in_every_language() {
        opened->world.useLanguage("cat");
        publish("");
        openList(pandocs);
        clickUpdate();
        publish(pandocs);
        clickUpdate();
        QCOMPARE(boxes(), (QStringList{failureText, newestText}));
    }

    // The server
    void the_list_is_asked_for_at_its_address() {
        const WebServer server(answerOf(emulator));
        updateFrom(server);
        QCOMPARE(server.requests.size(), 1);
        QVERIFY(server.requests.first().startsWith("GET /url.dat HTTP"));
        QCOMPARE(shared(), emulator + "\r\n");
    }
    void an_error_page_is_a_list_like_any_other() {
        const WebServer server(answerOf("<html>\n<h1>404</h1>", "404 Not Found"));
        updateFrom(server);
        QCOMPARE(boxes().first(), text("updatefinished"));
        QCOMPARE(rows(), (QStringList{u"<html>"_s, u"<h1>404</h1>"_s, u"Mine"_s}));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(window().isVisible());
    }
    void markup_and_control_characters_of_a_server_are_shown_as_they_are() {
        const WebServer server(answerOf("<img src=x>\x01\x1B;javascript:<b>x</b>;<i>\r\n"));
        updateFrom(server);
        QCOMPARE(rows().first(), u"<img src=x>\x01\x1B"_s);
        QCOMPARE(labels(), (QStringList{u"<img src=x>\x01\x1B"_s, text("user"), u"javascript:<b>x</b>"_s}));
        openRow(0);
        QCOMPARE(urls(), QStringList());
    }
    void a_hostile_server_is_a_failure_and_the_old_list_stays_data() {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("shorter than its length")
            << "HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nA;b;system"_ba;
        QTest::newRow("no HTTP") << "A;b;system\r\n"_ba;
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("length that is no number")
            << "HTTP/1.1 200 OK\r\nContent-Length: x\r\n\r\nA;b;system"_ba;
        QTest::newRow("chunks without an end")
            << "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nA;b;s\r\n"_ba;
        QTest::newRow("compressed") << answerOf("A;b;system", "200 OK", "Content-Encoding: gzip\r\n");
        QTest::newRow("redirect to a file") << answerOf("", "302 Found", "Location: file:///etc/passwd\r\n");
        QTest::newRow("redirect in a circle") << answerOf("", "302 Found", "Location: /url.dat\r\n");
        QTest::newRow("claims 100 MiB")
            << "HTTP/1.1 200 OK\r\nContent-Length: 104857600\r\n\r\nA;b;system"_ba;
        QTest::newRow("more than 8 MiB") << answerOf("A;b;system\r\n"_ba.repeated(800'000));
        QTest::newRow("header without end") << "HTTP/1.1 200 OK\r\nX: "_ba + QByteArray(100'000, 'x');
    }
    void a_hostile_server_is_a_failure_and_the_old_list_stays() {
        QFETCH(QByteArray, answer);
        const WebServer server(answer);
        updateFrom(server);
        checkFailed();
    }
    void a_connection_that_breaks_off_is_a_failure() {
        const WebServer server(
            WebServer::breakingOffAfter("HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nA;b;system"));
        updateFrom(server);
        checkFailed();
    }
    void a_server_that_says_nothing_is_a_failure_after_a_while() {
        const WebServer silent([](QTcpSocket&, const QByteArray&) {});
        useServer(silent.address(QString()));
        openOldList(pandocs, mine);
        TransferLimits limits = window().Inet1.limits();
        QCOMPARE(limits.silenceMilliseconds, 20000);
        limits.silenceMilliseconds = 200;
        window().Inet1.setLimits(limits);
        clickUpdate();
        checkFailed();
    }
    void a_host_that_nobody_listens_at_and_a_missing_file_read_the_same() {
        useServer(u"http://127.0.0.1:1"_s);
        openOldList(pandocs, mine);
        clickUpdate();
        checkFailed();
        messages().boxes.clear();
        useServer({});
        clickUpdate();
        checkFailed();
    }

    // Meanwhile
    void it_says_that_it_is_loading_until_it_has_ended() {
        bool wasSeen = false;
        updateWhile(
            [&] { wasSeen = isSeen(window().Loading) && window().Loading.Caption() == text("downloading"); },
            pandocs);
        QVERIFY(wasSeen);
        QVERIFY(!isSeen(window().Loading));
    }
    void clicks_wait_for_the_end() {
        updateWhile([&] { openRow(1); }, pandocs);
        QTRY_COMPARE(urls(), QStringList{u"http://mine.example/"_s});
        QCOMPARE(boxes(), QStringList{newestText});
    }
    void closed_meanwhile_it_goes_at_once_without_a_word_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how : {"window manager", "button", "escape"}) QTest::newRow(how) << QByteArray(how);
    }
    void closed_meanwhile_it_goes_at_once_without_a_word() {
        QFETCH(QByteArray, how);
        const WebServer silent([&](QTcpSocket&, const QByteArray&) {
            if (how == "button") return click(window().chameleonButton1);
            if (how == "escape") return QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
            window().close();
        });
        updateFrom(silent);
        QTRY_VERIFY(loaded<URL>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(boxes(), QStringList());
        QCOMPARE(shared(), pandocs);
        checkUntouched();
    }
    void a_second_click_waits_for_the_end_of_the_first_update() {
        int asked = 0;
        qsizetype boxesBefore = -1;
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            if (++asked == 1) {
                click(window().chameleonButton5);
            } else {
                boxesBefore = boxes().size();
            }
            client.write(answerOf(pandocs));
            client.disconnectFromHost();
        });
        updateFrom(server);
        QTRY_COMPARE(boxes(), QStringList(2, newestText));
        QCOMPARE(asked, 2);
        QCOMPARE(boxesBefore, 1);
    }
    void a_window_that_closes_under_the_last_box_stays_closed() {
        publish(emulator);
        openList(pandocs, mine);
        messages().whileOpen = [this] { window().close(); };
        clickUpdate();
        QCOMPARE(boxes(), QStringList{text("updatefinished")});
        QVERIFY(loaded<URL>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(shared(), emulator + "\r\n");
    }
    void a_request_to_close_that_waits_already_comes_before_the_download() {
        const WebServer server(answerOf(emulator));
        useServer(server.address(QString()));
        openOldList(pandocs, mine);
        URL& list = window();
        QMetaObject::invokeMethod(
            &list, [&list] { list.close(); }, Qt::QueuedConnection);
        emit list.chameleonButton5.Click();
        QVERIFY(loaded<URL>() == nullptr);
        QCOMPARE(boxes(), QStringList());
        QCOMPARE(server.requests.size(), 0);
        checkUntouched();
    }
    void a_list_that_its_line_end_makes_too_large_is_a_failure() {
        publish(QByteArray(WebLists::mostBytes - 1, 'x'));
        openOldList(pandocs, mine);
        clickUpdate();
        checkFailed();
    }
    void the_largest_list_that_can_be_read_again_is_taken() {
        publish(pandocs + QByteArray(WebLists::mostBytes - 2 - pandocs.size(), 'x'));
        openList(emulator, mine);
        clickUpdate();
        QCOMPARE(boxes(), QStringList{text("updatefinished")});
        QCOMPARE(rows().first(), u"Pan Docs"_s);
    }

    // Bad days of the disk
    void a_full_disk_is_reported_and_the_old_list_stays() {
        publish(emulator);
        openOldList(pandocs, mine);
        {
            const FullDisk full(10);
            clickUpdate();
        }
        checkFailed();
    }
    void a_read_only_folder_is_reported_and_the_old_list_stays() {
        publish(emulator);
        openOldList(pandocs, mine);
        folder().setMode(u"data"_s, 0555);
        {
            const OrdinaryUser user;
            clickUpdate();
        }
        folder().setMode(u"data"_s, 0755);
        checkFailed();
    }
    void a_list_that_cannot_be_read_is_reported_before_anything_is_fetched() {
        const WebServer server(answerOf(emulator));
        useServer(server.address(QString()));
        openList(pandocs, mine);
        folder().setMode(u"data/url.dat"_s, 0);
        {
            const OrdinaryUser user;
            clickUpdate();
        }
        folder().setMode(u"data/url.dat"_s, 0644);
        QCOMPARE(boxes().size(), 1);
        QVERIFY2(boxes().first().contains(u"url.dat"_s), qPrintable(boxes().first()));
        QCOMPARE(server.requests.size(), 0);
        checkIsUsable();
    }
};

TORVANE_TEST(URLUpdateTest)
#include "URLUpdateTest.moc"
