// SPDX-License-Identifier: MIT
// The program's own question: its words, its answers, and the main window behind it.
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class TorvMsgTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    TorvMsg* box() const { return opened->program->loaded<TorvMsg>(); }
    void ask(const char* action, const QString& data = {}, const char* message = "Well?") {
        opened->program->desk.go(Window::MainFrm, Window::TorvMsg,
                                 {QString::fromUtf8(message), QString::fromLatin1(action), data});
        QVERIFY(QTest::qWaitForWindowExposed(box()));
    }
    void yes() { click(box()->chameleonButton2); }
    void no() { click(box()->chameleonButton3); }

private slots:
    void init() {
        opened = std::make_unique<OpenedProgram>();
        opened->games(2);
        opened->open();
    }
    void cleanup() { opened.reset(); }

    void the_exit_button_asks_whether_to_leave() {
        click(opened->main().chameleonButton1);
        QVERIFY(box() != nullptr);
        QVERIFY(box()->isVisible());
        QCOMPARE(box()->Label2.Caption(), QStringLiteral("Are you sure you want to exit?"));
        QCOMPARE(box()->Label2.Caption(), opened->text("MainMenu", "suretoend"));
        QCOMPARE(opened->world.ends, 0);
    }
    void its_buttons_bear_the_words_of_the_language_data() {
        QTest::addColumn<QByteArray>("code");
        QTest::addColumn<QString>("yesWord");
        QTest::addColumn<QString>("noWord");
        QTest::newRow("English") << QByteArray("eng") << QStringLiteral("Yes") << QStringLiteral("No");
        QTest::newRow("Spanish") << QByteArray("esp") << QStringLiteral("Sí") << QStringLiteral("No");
        QTest::newRow("Catalan") << QByteArray("cat") << QStringLiteral("Sí") << QStringLiteral("No");
    }
    void its_buttons_bear_the_words_of_the_language() {
        QFETCH(QByteArray, code);
        QFETCH(QString, yesWord);
        QFETCH(QString, noWord);
        opened->program->globals.LanguageFile =
            opened->world.appPath() + QStringLiteral("\\data\\lang\\lang_%1.tvl").arg(QLatin1String(code));
        ask("msg");
        QCOMPARE(box()->chameleonButton2.Caption(), yesWord);
        QCOMPARE(box()->chameleonButton3.Caption(), noWord);
    }
    void the_call_returns_while_the_question_stands_and_the_main_window_takes_no_input() {
        click(opened->main().chameleonButton1);
        QVERIFY(!opened->main().isEnabled());
        click(opened->main().Edit_Menu);
        QVERIFY(!isSeen(opened->main().Picture1_1));
        opened->chooseRow(1);
        QCOMPARE(opened->main().Games.ListIndex(), 0);
        click(opened->main().chameleonButton1);
        QCOMPARE(opened->world.ends, 0);
    }
    void yes_ends_the_program_and_runs_no_further_line() {
        click(opened->main().chameleonButton1);
        TorvMsg* asked = box();
        yes();
        QCOMPARE(opened->world.ends, 1);
        QCOMPARE(box(), asked);
        QVERIFY(!opened->main().isEnabled());
    }
    void no_closes_the_question_and_gives_the_main_window_its_input_back() {
        click(opened->main().chameleonButton1);
        no();
        QVERIFY(box() == nullptr);
        QVERIFY(opened->main().isEnabled());
        QCOMPARE(opened->world.ends, 0);
        click(opened->main().Edit_Menu);
        QVERIFY(isSeen(opened->main().Picture1_1));
    }
    void it_can_be_asked_again_after_no() {
        click(opened->main().chameleonButton1);
        no();
        collectGone();
        click(opened->main().chameleonButton1);
        QVERIFY(box() != nullptr);
        yes();
        QCOMPARE(opened->world.ends, 1);
    }
    void no_leaves_a_hidden_main_window_disabled() {
        ask("exit");
        opened->main().Hide();
        no();
        QVERIFY(!opened->main().isEnabled());
        QVERIFY(!opened->main().isVisible());
    }
    void the_word_counts_in_any_case() {
        ask("EXIT");
        QVERIFY(!opened->main().isEnabled());
        yes();
        QCOMPARE(opened->world.ends, 1);
    }
    void a_word_that_only_informs_closes_and_does_nothing_data() {
        QTest::addColumn<QByteArray>("word");
        QTest::newRow("msg") << QByteArray("msg");
        QTest::newRow("unknown") << QByteArray("explode");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("exit with a blank") << QByteArray("exit ");
    }
    void a_word_that_only_informs_closes_and_does_nothing() {
        QFETCH(QByteArray, word);
        ask(word.constData(), opened->world.folder.path(QStringLiteral("roms/g001.gb")));
        QVERIFY(opened->main().isEnabled());
        yes();
        QVERIFY(box() == nullptr);
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(opened->main().isEnabled());
        QCOMPARE(opened->bytesOf(QStringLiteral("g001.gb")).size(), 3000);
    }
    void delete_deletes_the_file_on_yes_and_refreshes_the_list() {
        ask("Delete", opened->world.appPath() + QStringLiteral("\\roms\\g001.gb"));
        QVERIFY(opened->main().isEnabled());
        QVERIFY(QFile::exists(opened->world.folder.path(QStringLiteral("roms/g001.gb"))));
        yes();
        QVERIFY(!QFile::exists(opened->world.folder.path(QStringLiteral("roms/g001.gb"))));
        QCOMPARE(opened->main().TotalRom.Caption(), QStringLiteral("0001"));
        QCOMPARE(opened->main().Games.ListCount(), 1);
        QCOMPARE(opened->main().Games.Path(), opened->world.appPath() + QStringLiteral("\\roms"));
        QVERIFY(box() == nullptr);
    }
    void delete_keeps_the_file_on_no() {
        ask("delete", opened->world.appPath() + QStringLiteral("\\roms\\g001.gb"));
        no();
        QVERIFY(QFile::exists(opened->world.folder.path(QStringLiteral("roms/g001.gb"))));
        QVERIFY(box() == nullptr);
    }
    void a_file_that_cannot_be_deleted_is_reported_and_the_question_stays() {
        ask("delete", opened->world.appPath() + QStringLiteral("\\roms\\gone.gb"));
        yes();
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QVERIFY(opened->world.messages.last().contains(QStringLiteral("53")));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(box()->isVisible());
        QCOMPARE(opened->main().TotalRom.Caption(), QStringLiteral("0002"));
    }
    void a_second_question_takes_the_place_of_the_first() {
        const QString path = opened->world.appPath() + QStringLiteral("\\roms\\g001.gb");
        ask("delete", path, "First");
        TorvMsg* asked = box();
        ask("msg", {}, "Second");
        QCOMPARE(box(), asked);
        QCOMPARE(box()->Label2.Caption(), QStringLiteral("Second"));
        yes();
        QVERIFY(QFile::exists(opened->world.folder.path(QStringLiteral("roms/g001.gb"))));
    }
    void closing_the_question_by_the_window_manager_means_no() {
        click(opened->main().chameleonButton1);
        box()->close();
        QVERIFY(box() == nullptr);
        QVERIFY(opened->main().isEnabled());
        QCOMPARE(opened->world.ends, 0);
    }
    void closing_the_main_window_by_the_window_manager_asks() {
        opened->main().close();
        QVERIFY(box() != nullptr);
        QVERIFY(opened->main().isVisible());
        QVERIFY(!opened->main().isEnabled());
        QCOMPARE(box()->Label2.Caption(), opened->text("MainMenu", "suretoend"));
        TorvMsg* asked = box();
        opened->main().close();
        QCOMPARE(box(), asked);
        yes();
        QCOMPARE(opened->world.ends, 1);
    }
    void no_key_answers_the_question() {
        click(opened->main().chameleonButton1);
        QVERIFY(QTest::qWaitForWindowActive(box()));
        QTest::keyClick(box()->windowHandle(), Qt::Key_Return);
        QTest::keyClick(box()->windowHandle(), Qt::Key_Escape);
        QVERIFY(box() != nullptr);
        QCOMPARE(opened->world.ends, 0);
    }
    void a_long_message_does_not_make_the_window_grow() {
        ask("msg");
        const QSize before = box()->size();
        const QSize label = box()->Label2.size();
        ask("msg", {}, QByteArray(2000, 'w').constData());
        QCOMPARE(box()->size(), before);
        QCOMPARE(box()->Label2.size(), label);
    }
    void markup_in_a_message_is_text() {
        ask("msg", {}, "<b>100 %s & more</b>");
        QCOMPARE(box()->Label2.Caption(), QStringLiteral("<b>100 %s & more</b>"));
        const QImage whole = box()->Label2.grab().toImage();
        ask("msg", {}, "100 %s & more");
        QVERIFY(box()->Label2.grab().toImage() != whole);
    }
};

TORVANE_TEST(TorvMsgTest)
#include "TorvMsgTest.moc"
