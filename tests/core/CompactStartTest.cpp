// SPDX-License-Identifier: MIT
// Starts with the compact window first: with the intro and without, with games and without.
#include "support/OpenedCompact.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class CompactStartTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedCompact> opened;
    FakeMessages& messages() const { return opened->world.messages; }
    // Up to the end of the intro, if there is one.
    void startWith(const char* intro) {
        opened->world.setSetting("Intro", QString::fromLatin1(intro));
        opened->world.setSetting("Start", u"1"_s);
        opened->start();
        if (Splash* window = opened->program->loaded<Splash>()) {
            QVERIFY(QTest::qWaitForWindowExposed(window));
            QTest::keyClick(window, Qt::Key_Return);
        }
    }
    static void addPaths() {
        QTest::addColumn<QByteArray>("intro");
        QTest::newRow("without intro") << QByteArray("0");
        QTest::newRow("with intro") << QByteArray("1");
    }

private slots:
    void init() { opened = std::make_unique<OpenedCompact>(); }
    void cleanup() { opened.reset(); }

    void the_compact_window_opens_alone_with_the_first_game_data() { addPaths(); }
    void the_compact_window_opens_alone_with_the_first_game() {
        QFETCH(QByteArray, intro);
        opened->tagged(u"a.gb"_s, u"One"_s);
        opened->tagged(u"b.gb"_s, u"Two"_s);
        startWith(intro.constData());
        opened->awaitCompact();
        QVERIFY(opened->isCompact());
        QVERIFY(opened->program->loaded<Splash>() == nullptr);
        QCOMPARE(opened->line(), u"ONE ··· "_s);
        QCOMPARE(window().Label3.Caption(), u"#0001"_s);
        QCOMPARE(window().Label6.Caption(), u"Acme"_s);
    }
    void it_leads_back_to_a_main_window_that_was_never_shown_data() { addPaths(); }
    void it_leads_back_to_a_main_window_that_was_never_shown() {
        QFETCH(QByteArray, intro);
        opened->games(2);
        startWith(intro.constData());
        opened->awaitCompact();
        opened->next();
        click(window().chameleonButton3);
        QVERIFY(opened->program->loaded<Torvette>() == nullptr);
        QVERIFY(opened->main().isVisible());
        QCOMPARE(opened->main().Label41.Caption(), u"#2/2"_s);
        click(opened->main().ChameleonButton12);
        QVERIFY(opened->isCompact());
    }
    void the_compact_window_is_on_screen_before_the_intro_goes() {
        opened->games(1);
        opened->world.setSetting("Intro", u"1"_s);
        opened->world.setSetting("Start", u"1"_s);
        opened->start();
        Splash& intro = *opened->program->loaded<Splash>();
        QVERIFY(QTest::qWaitForWindowExposed(&intro));
        bool wasThere = false;
        connect(&intro, &Form::unloaded, this, [&] { wasThere = opened->isCompact(); });
        QTest::keyClick(&intro, Qt::Key_Return);
        QTRY_VERIFY(opened->program->loaded<Splash>() == nullptr);
        QVERIFY(wasThere);
    }
    void without_intro_the_main_window_is_loaded_by_its_first_use_and_never_shown() {
        opened->games(1);
        opened->world.setSetting("Start", u"1"_s);
        struct Watch : QObject {
            bool hasMainAppeared = false;
            bool eventFilter(QObject* object, QEvent* event) override {
                hasMainAppeared |= event->type() == QEvent::Show && object->objectName() == u"MainFrm"_s;
                return false;
            }
        } watch;
        qApp->installEventFilter(&watch);
        opened->start();
        opened->awaitCompact();
        QVERIFY(opened->program->loaded<MainFrm>() != nullptr);
        QVERIFY(!watch.hasMainAppeared);
    }
    void with_an_empty_library_the_assistant_opens_data() { addPaths(); }
    void with_an_empty_library_the_assistant_opens() {
        QFETCH(QByteArray, intro);
        startWith(intro.constData());
        QTRY_VERIFY(opened->isThere() && opened->assistant().isVisible());
        QVERIFY(window().isVisible());
        QCOMPARE(messages().boxes.size(), 0);
        // Its end leaves the compact window with the new game.
        opened->copyFile(opened->original(u"new.gbc"_s));
        click(opened->assistant().ChameleonButton6);
        click(opened->assistant().chameleonButton1);
        QVERIFY(!opened->isThere());
        QVERIFY(opened->isCompact());
        QCOMPARE(opened->data().first(2), QStringList({u"#0001"_s, u"GB Color"_s}));
    }
    void any_other_number_opens_the_main_window_data() {
        QTest::addColumn<QString>("start");
        for (const char* start : {"0", "2", "-1", "0.4"}) QTest::newRow(start) << QString::fromLatin1(start);
    }
    void any_other_number_opens_the_main_window() {
        QFETCH(QString, start);
        opened->world.setSetting("Start", start);
        opened->games(1);
        opened->open();
        QVERIFY(opened->main().isVisible());
        QVERIFY(opened->program->loaded<Torvette>() == nullptr);
    }
    void a_start_that_is_no_number_takes_the_default_failure_path() {
        opened->world.setSetting("Start", u"compact"_s);
        opened->games(1);
        opened->start();
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY(messages().last().contains(u"'13'"_s));
        QCOMPARE(opened->world.ends, 1);
    }

private:
    Torvette& window() const { return opened->compact(); }
};

TORVANE_TEST(CompactStartTest)
#include "CompactStartTest.moc"
