// SPDX-License-Identifier: MIT
// Files and folders dropped on the main window or on the assistant.
#include "support/OpenedAssistant.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class NewAssistantDropTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedAssistant> opened;
    NewAssistant& window() const { return opened->assistant(); }

private slots:
    void init() { opened = std::make_unique<OpenedAssistant>(); }
    void cleanup() { opened.reset(); }

    void a_file_dropped_on_the_main_window_opens_the_assistant_with_it() {
        opened->games(1);
        const QString path = opened->original(u"a game.gb"_s, "dropped");
        opened->open();
        QVERIFY(dropOn(opened->main(), addressOf(path)));
        QTRY_VERIFY(opened->isThere());
        QCOMPARE(window().FilePath.Text(), path);
        QCOMPARE(opened->typed(), opened->said("f12"));
        QVERIFY(window().chameleonButton1.Enabled());
        QCOMPARE(window().windowHandle()->transientParent(), opened->main().windowHandle());
        click(window().chameleonButton1);
        QCOMPARE(opened->bytesOf(u"a game.gb"_s), QByteArray("dropped"));
        QCOMPARE(opened->typed(), opened->page("f5", "f6", "f7"));
    }
    void a_folder_dropped_on_the_assistant_is_copied_and_asked_about() {
        for (const QString& name : {u"a.gb"_s, u"b.gb"_s, u"c.gb"_s}) opened->original(name);
        opened->openAssistant();
        QVERIFY(dropOn(window(), addressOf(opened->from())));
        QTRY_COMPARE(opened->library().size(), 3);
        QCOMPARE(opened->typed(), opened->page("f5b", "f6", "f7"));
        QCOMPARE(opened->world.folder.entries(u"from"_s).size(), 3);
    }
    void a_drop_while_a_hidden_assistant_still_copies_is_taken_afterwards() {
        opened->games(1);
        const QString dropped = opened->original(u"late.gb"_s, "late");
        for (const QString& name : {u"a.gb"_s, u"b.gb"_s, u"c.gb"_s}) {
            opened->world.folder.write(u"many/"_s + name, "game");
        }
        opened->open();
        opened->program->desk.go(Window::MainFrm, Window::NewAssistant);
        QVERIFY(QTest::qWaitForWindowExposed(&window()));
        bool wasHidden = false;
        connect(&window().File1, &FileList::Click, this, [&] {
            if (window().File1.ListIndex() != 0) return;
            emit window().ChameleonButton2.Click();
            wasHidden = !window().isVisible();
            emit opened->main().pathDropped(dropped);
        });
        opened->copyFolder(opened->world.folder.path(u"many"_s));
        QVERIFY(wasHidden);
        QVERIFY(opened->isThere() && window().isVisible());
        QCOMPARE(window().FilePath.Text(), dropped);
        QCOMPARE(opened->bytesOf(u"a.gb"_s), QByteArray("game"));
        click(window().chameleonButton1);
        QCOMPARE(opened->bytesOf(u"late.gb"_s), QByteArray("late"));
    }
    void a_drop_while_a_visible_assistant_copies_waits_for_the_answer_to_its_question() {
        const QString dropped = opened->original(u"late.gb"_s, "late");
        opened->world.folder.write(u"many/a.gb"_s, "game");
        opened->openAssistant();
        connect(&window().File1, &FileList::Click, this, [&] { emit window().pathDropped(dropped); });
        opened->copyFolder(opened->world.folder.path(u"many"_s));
        QCOMPARE(opened->typed(), opened->page("f5b", "f6", "f7"));
        click(window().ChameleonButton5);
        QCOMPARE(opened->world.folder.entries(u"many"_s), QStringList());
        QCOMPARE(window().FilePath.Text(), dropped);
    }
    void exit_takes_a_waiting_drop_before_it_closes() {
        const QString dropped = opened->original(u"late.gb"_s, "late");
        opened->world.folder.write(u"many/a.gb"_s, "game");
        opened->openAssistant();
        connect(&window().File1, &FileList::Click, this, [&] { emit window().pathDropped(dropped); });
        opened->copyFolder(opened->world.folder.path(u"many"_s));
        click(window().ChameleonButton2);
        QVERIFY(opened->isThere() && window().isVisible());
        QCOMPARE(window().FilePath.Text(), dropped);
        click(window().ChameleonButton2);
        QVERIFY(!opened->isThere());
    }
    void the_first_of_several_dropped_items_is_used() {
        const QString first = opened->original(u"a.gb"_s);
        const QString second = opened->original(u"b.gb"_s);
        opened->openAssistant();
        QVERIFY(dropOn(window(), "# a comment\r\n" + addressOf(first) + addressOf(second)));
        QTRY_COMPARE(window().FilePath.Text(), first);
    }
    void a_drop_on_a_pending_question_keeps_the_originals() {
        const QString first = opened->original(u"a.gb"_s);
        const QString second = opened->original(u"b.gb"_s);
        opened->openAssistant();
        opened->copyFile(first);
        QVERIFY(dropOn(window(), addressOf(second)));
        QTRY_COMPARE(window().FilePath.Text(), second);
        QVERIFY(QFile::exists(first));
        QVERIFY(!isSeen(window().ChameleonButton5) && isSeen(window().FilePath));
        click(window().chameleonButton1);
        QCOMPARE(opened->library(), (QStringList{u"a.gb"_s, u"b.gb"_s}));
    }
    void a_dropped_name_that_is_not_utf_8_is_copied() {
        opened->world.folder.makeFolder(u"from"_s);
        opened->world.folder.writeNative("from/a\xFF.gb", "bytes");
        opened->openAssistant();
        QVERIFY(dropOn(window(), "file://" + opened->from().toUtf8() + "/a%FF.gb"));
        QTRY_VERIFY(isSeen(window().FilePath));
        click(window().chameleonButton1);
        QCOMPARE(access(opened->world.folder.native("roms/a\xFF.gb").constData(), R_OK), 0);
    }
    void anything_but_a_file_of_this_machine_is_refused_data() {
        QTest::addColumn<QByteArray>("addresses");
        QTest::newRow("a web page") << QByteArray("https://www.example.org/a.gb");
        QTest::newRow("another machine") << QByteArray("file://elsewhere/tmp");
        QTest::newRow("missing file") << QByteArray("file:///nowhere/at/all.gb");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("no path") << QByteArray("file:");
        QTest::newRow("a zero") << QByteArray("file:///tmp%00");
        QTest::newRow("comments") << QByteArray("# file:///tmp\r\n");
    }
    void anything_but_a_file_of_this_machine_is_refused() {
        QFETCH(QByteArray, addresses);
        opened->games(1);
        opened->open();
        QVERIFY(!dropOn(opened->main(), addresses));
        QTest::qWait(20);
        QVERIFY(!opened->isThere());
    }
    void a_pipe_is_refused() {
        opened->games(1);
        opened->open();
        const QString pipe = opened->world.folder.path(u"pipe.gb"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(!dropOn(opened->main(), addressOf(pipe)));
    }
    void a_plain_text_is_refused() {
        opened->games(1);
        opened->open();
        QMimeData data;
        data.setText(u"/tmp"_s);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.setAccepted(false);
        QCoreApplication::sendEvent(&opened->main(), &enter);
        QVERIFY(!enter.isAccepted());
    }
    void a_main_window_without_input_takes_no_drop() {
        opened->games(1);
        const QString path = opened->original(u"a.gb"_s);
        opened->open();
        click(opened->main().chameleonButton1);
        QVERIFY(!dropOn(opened->main(), addressOf(path)));
    }
};

TORVANE_TEST(NewAssistantDropTest)
#include "NewAssistantDropTest.moc"
