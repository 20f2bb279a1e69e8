// SPDX-License-Identifier: MIT
// The database window while it fetches the file, and when that fails.
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"
#include "support/WebServer.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class EditDBDownloadTest : public OpenedDatabase {
    Q_OBJECT

    const QString failureText = u"Se ha producido un error mientras se conectaba a la Base de Datos.\r\n\r\n"
                                "Intentalo de nuevo o más tarde, o cambia de servidor."_s;

    // Makes a server the host of the database, and opens the window.
    void openWith(const WebServer& server) {
        useServer(server.address(QString()));
        opened->open();
        click(main().chameleonButton3);
    }
    // The same with a server that answers as soon as the test has seen what it wants to see.
    void openWhile(const std::function<void()>& look, const QByteArray& body) {
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            look();
            client.write(answerOf(body));
            client.disconnectFromHost();
        });
        openWith(server);
    }
    void checkFailureBox() const {
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), failureText);
        QCOMPARE(messages().boxes.first().flags, 64);
        QCOMPARE(messages().boxes.first().title, u"Torvane 1.0 OnLine DataBase"_s);
    }
    void checkIsUsable() const {
        QVERIFY(window().isVisible());
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(!window().down.StillExecuting());
        emit window().Timer1.Tick();
        QVERIFY(window().ChameleonButton17.Enabled());
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void the_file_is_asked_for_at_its_address() {
        const WebServer server(answerOf(tetris));
        openWith(server);
        QCOMPARE(server.requests.size(), 1);
        QVERIFY(server.requests.first().startsWith("GET /online_db.txt HTTP"));
        QCOMPARE(copy(), tetris + "\r\n");
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
    }
    void an_answer_with_an_error_status_becomes_the_file_too() {
        const WebServer server(answerOf(tetris, "404 Not Found"));
        openWith(server);
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
    }

    // While it fetches
    void the_window_stands_on_the_screen_with_its_texts_while_it_fetches() {
        bool wasSeen = false;
        QString words;
        openWhile(
            [&] {
                wasSeen = window().isVisible() && !main().isVisible();
                words = window().Label14.Caption();
            },
            tetris);
        QVERIFY(wasSeen);
        QCOMPARE(words, u"Filters"_s);
    }
    void it_says_that_it_is_loading_and_no_entry_can_be_used_until_the_timer_sees_the_end() {
        bool wasBusy = false;
        openWhile(
            [&] {
                emit window().Timer1.Tick();
                wasBusy = isSeen(window().load) && !window().ChameleonButton17.Enabled() &&
                          window().Timer1.Enabled();
            },
            tetris);
        QVERIFY(wasBusy);
        QVERIFY(isSeen(window().load));
        QVERIFY(!window().ChameleonButton17.Enabled());
        QTRY_VERIFY(!window().Timer1.Enabled());
        QVERIFY(!isSeen(window().load));
        QVERIFY(window().ChameleonButton17.Enabled());
    }
    void the_timer_runs_during_a_slow_download() {
        int ticks = 0;
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            connect(&window().Timer1, &Timer::Tick, &client, [&, answered = false]() mutable {
                if (++ticks < 2 || std::exchange(answered, true)) return;
                client.write(answerOf(tetris));
                client.disconnectFromHost();
            });
        });
        openWith(server);
        QVERIFY(ticks >= 2);
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
    }
    void a_window_that_the_user_has_gone_to_meanwhile_stays_in_front() {
        QWidget other;
        openWhile(
            [&] {
                other.show();
                other.activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&other));
            },
            tetris);
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
        QCoreApplication::processEvents();
        QVERIFY(other.isActiveWindow());
        QVERIFY(window().isVisible());
    }
    void escape_after_the_download_closes_nothing() {
        openWhile([] {}, tetris);
        QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
        QVERIFY(loaded<EditDB>() != nullptr);
    }
    void clicks_wait_for_the_end_of_the_download() {
        openWhile([&] { click(window().ChameleonButton3); }, tetris);
        QTRY_COMPARE(opened->world.browser.urls.size(), 1);
    }

    // Failures
    void a_failed_download_is_reported_in_its_own_words_and_leaves_an_empty_list() {
        const WebServer server(
            WebServer::breakingOffAfter("HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nbyn"));
        openWith(server);
        checkFailureBox();
        QCOMPARE(titles(), QStringList());
        checkIsUsable();
    }
    void a_failed_download_leaves_the_last_good_copy_which_the_filter_lists() {
        opened->world.folder.write(u"online_db.dat"_s, wario);
        const WebServer server(
            WebServer::breakingOffAfter("HTTP/1.1 200 OK\r\nContent-Length: 900\r\n\r\nbyn"));
        openWith(server);
        checkFailureBox();
        QCOMPARE(copy(), wario);
        QCOMPARE(titles(), QStringList());
        click(window().ChameleonButton2);
        QCOMPARE(titles(), QStringList{u"Wario"_s});
    }
    void a_missing_file_of_the_host_is_reported_in_the_same_words() {
        opened->open();
        click(main().chameleonButton3);
        checkFailureBox();
        checkIsUsable();
    }
    void a_file_that_cannot_be_written_is_reported_in_the_same_words() {
        opened->world.folder.makeFolder(u"online_db.dat"_s);
        publish(tetris);
        opened->open();
        click(main().chameleonButton3);
        checkFailureBox();
        QCOMPARE(titles(), QStringList());
        checkIsUsable();
    }
    void the_words_of_the_failure_are_the_same_in_every_language() {
        opened->world.useLanguage("cat");
        opened->open();
        click(main().chameleonButton3);
        checkFailureBox();
    }

    // The end
    void closed_while_it_fetches_it_goes_at_once_without_a_word() {
        opened->world.folder.write(u"online_db.dat"_s, wario);
        const WebServer silent([&](QTcpSocket&, const QByteArray&) { window().close(); });
        openWith(silent);
        QTRY_VERIFY(loaded<EditDB>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(copy(), wario);
    }
    void its_close_button_and_escape_end_the_download_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how : {"mouse", "assistive tool", "space", "escape"})
            QTest::newRow(how) << QByteArray(how);
    }
    void its_close_button_and_escape_end_the_download() {
        QFETCH(QByteArray, how);
        const WebServer silent([&](QTcpSocket&, const QByteArray&) {
            if (how == "mouse") return click(window().chameleonButton1);
            if (how == "assistive tool") return window().chameleonButton1.performClick();
            if (how == "escape") return QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
            window().chameleonButton1.setFocus();
            QTest::keyClick(window().windowHandle(), Qt::Key_Space);
        });
        openWith(silent);
        QTRY_VERIFY(loaded<EditDB>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void what_is_no_click_on_its_close_button_ends_no_download_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how :
             {"right button", "press elsewhere", "click elsewhere", "return", "space elsewhere", "tab"})
            QTest::newRow(how) << QByteArray(how);
    }
    void what_is_no_click_on_its_close_button_ends_no_download() {
        QFETCH(QByteArray, how);
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            QWindow* handle = window().windowHandle();
            const QPoint cross = window().chameleonButton1.geometry().center();
            if (how == "right button") {
                QTest::mouseClick(handle, Qt::RightButton, {}, cross);
            } else if (how == "press elsewhere") {
                QTest::mousePress(handle, Qt::LeftButton, {}, {10, 10});
                QTest::mouseRelease(handle, Qt::LeftButton, {}, cross);
            } else if (how == "click elsewhere") {
                QTest::mouseClick(handle, Qt::LeftButton, {}, {100, 200});
            } else if (how == "space elsewhere") {
                QTest::keyClick(handle, Qt::Key_Space);
            } else if (how == "tab") {
                QTest::keyClick(handle, Qt::Key_Tab);
            } else {
                window().chameleonButton1.setFocus();
                QTest::keyClick(handle, Qt::Key_Return);
            }
            client.write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(tetris.size()) +
                         "\r\n\r\n" + tetris);
        });
        openWith(server);
        QVERIFY(loaded<EditDB>() != nullptr);
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
    }
    void closed_once_the_body_is_there_it_keeps_the_file_and_goes_data() {
        QTest::addColumn<bool>("byButton");
        QTest::newRow("button") << true;
        QTest::newRow("window manager") << false;
    }
    void closed_once_the_body_is_there_it_keeps_the_file_and_goes() {
        QFETCH(bool, byButton);
        opened->world.folder.write(u"online_db.dat"_s, wario);
        QByteArray copyAtClose;
        QTimer watch;
        connect(&watch, &QTimer::timeout, this, [&] {
            if (window().down.StillExecuting()) return;
            watch.stop();
            copyAtClose = copy();
            byButton ? click(window().chameleonButton1) : void(window().close());
        });
        openWhile([&] { watch.start(0); }, tetris);
        QCOMPARE(copyAtClose, wario); // not written yet
        QTRY_VERIFY(loaded<EditDB>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(copy(), tetris + "\r\n");
        QCOMPARE(hiddenNames(), QStringList());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void closed_before_it_fetches_it_asks_the_server_for_nothing() {
        struct Closing : QObject {
            bool eventFilter(QObject* object, QEvent* event) override {
                if (event->type() == QEvent::Show && object->objectName() == u"EditDB"_s)
                    QMetaObject::invokeMethod(object, "close", Qt::QueuedConnection);
                return false;
            }
        } closing;
        qApp->installEventFilter(&closing);
        const WebServer server(answerOf(tetris));
        openWith(server);
        QTRY_VERIFY(loaded<EditDB>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(server.requests.size(), 0);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void after_a_closed_download_the_database_opens_again() {
        const WebServer silent([&](QTcpSocket&, const QByteArray&) { window().close(); });
        openWith(silent);
        QTRY_VERIFY(loaded<EditDB>() == nullptr);
        collectGone();
        opened->world.folder.write(u"data/hosts.ini"_s, "");
        publish(tetris);
        clickDatabase();
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
    }
};

TORVANE_TEST(EditDBDownloadTest)
#include "EditDBDownloadTest.moc"
