// SPDX-License-Identifier: MIT
// The check for a newer version: its answers, its waiting, and its end.
#include "support/EventRuns.h"
#include "support/OpenedVersionCheck.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class VersionCheckTest : public OpenedVersionCheck {
    Q_OBJECT

    void answerWith(QTcpSocket& client, const QByteArray& version) const {
        client.write(answerOf(versionFile(version)));
        client.disconnectFromHost();
    }
    // The panel, and a check with a server.
    void checkWith(const WebServer& server) {
        useServer(server);
        openPanel();
        check();
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // The answers
    void the_version_of_the_tree_is_nothing_new() {
        QFile shared(QStringLiteral(TORVANE_TREE_DIR "/data/site/tv_version.txt"));
        QVERIFY(shared.open(QIODevice::ReadOnly));
        const QByteArray body = shared.readAll();
        checkAgainst(body);
        expectNothingNew();
        QCOMPARE(copy(), body + "\r\n");
        QVERIFY(world().browser.urls.isEmpty());
    }
    void a_newer_version_is_offered_and_a_yes_opens_its_page() {
        messages().answer = MsgBoxFlags::answerYes;
        checkAgainst(versionFile("2.0"));
        QCOMPARE(messages().boxes.size(), 1);
        const FakeMessages::Box& box = messages().boxes.first();
        QCOMPARE(box.text, text("newa") + u"\r\n\r\nTorvane 2.0\r\n\r\n"_s + text("newb"));
        QCOMPARE(box.flags, 36);
        QCOMPARE(box.title, u"Torvane 1.1 » New version available"_s);
        QCOMPARE(world().browser.urls,
                 QStringList{u"file://%1/data/site/index-section-torvane.html"_s.arg(world().appPath())});
        expectUsable();
    }
    void a_no_opens_nothing() {
        messages().answer = MsgBoxFlags::answerNo;
        checkAgainst(versionFile("2.0"));
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY(world().browser.urls.isEmpty());
        expectUsable();
    }
    void the_page_is_that_of_the_update_server() {
        messages().answer = MsgBoxFlags::answerYes;
        const WebServer server(answerOf(versionFile("2.0")));
        checkWith(server);
        QCOMPARE(server.requests.size(), 1);
        QVERIFY(server.requests.first().startsWith("GET /tv_version.txt HTTP"));
        QCOMPARE(world().browser.urls, QStringList{server.address(u"/index.php?section=torvane"_s)});
        QCOMPARE(copy(), versionFile("2.0") + "\r\n");
    }
    void the_texts_are_in_the_language_and_the_updater_has_one_title_data() {
        QTest::addColumn<QByteArray>("language");
        for (const char* language : {"esp", "cat"}) QTest::newRow(language) << QByteArray(language);
    }
    void the_texts_are_in_the_language_and_the_updater_has_one_title() {
        QFETCH(QByteArray, language);
        world().useLanguage(language.constData());
        checkAgainst(versionFile("1.1"));
        expectNothingNew();
        publish(versionFile("2.0"));
        check();
        QCOMPARE(messages().boxes.last().title, u"Torvane 1.1 » "_s + text("newc"));
    }
    void the_second_check_uses_the_new_answer() {
        checkAgainst(versionFile("2.0"));
        publish(versionFile("1.0"));
        check();
        expectNothingNew(2);
        QCOMPARE(copy(), versionFile("1.0") + "\r\n");
    }

    // While it waits
    void the_words_of_the_check_are_painted_while_it_waits_and_hidden_after_it() {
        bool wasSeen = false;
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            wasSeen = isSeen(panel().load) && panel().Inet1.StillExecuting();
            answerWith(client, "1.1");
        });
        checkWith(server);
        QVERIFY(wasSeen);
        expectNothingNew();
    }
    void the_words_are_painted_even_for_a_host_that_answers_at_once() {
        publish(versionFile("1.1"));
        openPanel();
        QStringList seen;
        {
            EventRuns runs([this] { return isSeen(panel().load) ? u"seen"_s : u"hidden"_s; });
            check();
            seen = runs.seen;
        }
        QVERIFY(seen.contains(u"seen"_s));
    }
    void a_second_press_while_it_waits_does_nothing_then_or_later_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how : {"mouse", "key", "assistive tool"}) QTest::newRow(how) << QByteArray(how);
    }
    void a_second_press_while_it_waits_does_nothing_then_or_later() {
        QFETCH(QByteArray, how);
        bool stayed = false;
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            chameleonButton& button = panel().chameleonButton6;
            if (how == "mouse") click(button);
            if (how == "assistive tool") button.performClick();
            if (how == "key") {
                button.setFocus();
                QTest::keyClick(panel().windowHandle(), Qt::Key_Space);
            }
            emit button.Click();
            stayed = isSeen(panel().load);
            answerWith(client, "1.1");
        });
        checkWith(server);
        QVERIFY(stayed);
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
        QCOMPARE(server.requests.size(), 1);
        expectNothingNew();
        check();
        QCOMPARE(server.requests.size(), 2);
    }
    void a_double_click_checks_once() {
        publish(versionFile("1.1"));
        openPanel();
        postClick(panel().chameleonButton6);
        check();
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
        expectNothingNew();
    }
    void other_clicks_while_it_waits_are_forgotten() {
        const WebServer server([&](QTcpSocket& client, const QByteArray&) {
            click(panel().chameleonButton3);
            answerWith(client, "1.1");
        });
        checkWith(server);
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
        QVERIFY(loaded<ConfGen>() == nullptr);
        expectNothingNew();
    }

    // The end
    void closed_while_it_waits_it_goes_at_once_without_a_word_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how : {"button", "escape", "window manager", "assistive tool"})
            QTest::newRow(how) << QByteArray(how);
    }
    void closed_while_it_waits_it_goes_at_once_without_a_word() {
        QFETCH(QByteArray, how);
        world().folder.write(u"data/version.dat"_s, "old");
        const WebServer silent([&](QTcpSocket&, const QByteArray&) {
            if (how == "button") click(panel().chameleonButton1);
            if (how == "escape") QTest::keyClick(panel().windowHandle(), Qt::Key_Escape);
            if (how == "window manager") panel().close();
            if (how == "assistive tool") panel().chameleonButton1.performClick();
        });
        checkWith(silent);
        QTRY_VERIFY(loaded<ConfigNew>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(copy(), "old"_ba);
        QCOMPARE(world().ends, 0);
    }
    void closed_before_it_has_asked_the_server_it_asks_nobody() {
        const WebServer server(answerOf(versionFile("2.0")));
        useServer(server);
        openPanel();
        ConfigNew* const open = &panel();
        QTimer::singleShot(0, open, [open] { open->Unload(); });
        emit open->chameleonButton6.Click();
        QVERIFY(loaded<ConfigNew>() == nullptr);
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
        QCOMPARE(server.requests.size(), 0);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void escape_closes_the_panel_after_a_check_as_before_it() {
        checkAgainst(versionFile("1.1"));
        QTest::keyClick(panel().windowHandle(), Qt::Key_Escape);
        QVERIFY(loaded<ConfigNew>() == nullptr);
    }
    void the_general_options_stay_open_beside_a_check() {
        publish(versionFile("1.1"));
        openOptions();
        panel().activateWindow();
        check();
        expectNothingNew();
        QVERIFY(window().isVisible());
    }
    void a_second_press_starts_no_check_after_another_window_was_closed() {
        const WebServer silent([&](QTcpSocket&, const QByteArray&) {
            click(panel().chameleonButton6);
            if (loaded<ConfGen>() != nullptr) window().close();
        });
        useServer(silent);
        openOptions();
        TransferLimits limits = panel().Inet1.limits();
        limits.silenceMilliseconds = 300;
        panel().Inet1.setLimits(limits);
        check();
        QTRY_VERIFY(loaded<ConfGen>() == nullptr);
        for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
        QCOMPARE(silent.requests.size(), 1);
        QCOMPARE(messages().boxes.size(), 0);
    }
};

TORVANE_TEST(VersionCheckTest)
#include "VersionCheckTest.moc"
