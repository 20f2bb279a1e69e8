// SPDX-License-Identifier: MIT
// What the edit fields of a tag accept from the user, and what they drop.
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace torvane;

class MainFrmTagInputTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& window() const { return opened->main(); }
    TextBox& field(const QString& name) const { return *window().findChild<TextBox*>(name); }
    void paste(TextBox& box, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        click(box);
        QTest::keyClick(box.focusProxy(), Qt::Key_V, Qt::ControlModifier);
    }
    void expectNoHint() { QCOMPARE(window().Label13.Caption(), QStringLiteral("» Game list")); }
    void expectHint() {
        QVERIFY(window().Label13.Caption() != QStringLiteral("» Game list"));
        QCOMPARE(window().Label13.Caption(), QStringLiteral("» Sign not allowed"));
        QVERIFY(window().displayer.Enabled());
    }
    static void fieldRows() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"EditID3Title", "EditID3Company", "EditID3Info"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }

private slots:
    void init() {
        opened = std::make_unique<OpenedProgram>();
        opened->game(QStringLiteral("a.gb"));
        opened->open();
        click(window().Edit_Menu);
    }
    void cleanup() { opened.reset(); }

    void every_field_accepts_what_a_tag_can_hold_data() { fieldRows(); }
    void every_field_accepts_what_a_tag_can_hold() {
        QFETCH(QString, name);
        const QString text = QStringLiteral("Año €5 “Ça” œ ÿ <b>&%s</b>");
        click(field(name));
        typeText(*field(name).focusProxy(), text);
        QCOMPARE(field(name).Text(), text);
        expectNoHint();
    }
    void typed_characters_that_a_tag_cannot_hold_are_dropped_with_a_hint_data() { fieldRows(); }
    void typed_characters_that_a_tag_cannot_hold_are_dropped_with_a_hint() {
        QFETCH(QString, name);
        click(field(name));
        typeText(*field(name).focusProxy(), QStringLiteral("a"));
        expectNoHint();
        typeText(*field(name).focusProxy(), QStringLiteral("§"));
        QCOMPARE(field(name).Text(), QStringLiteral("a"));
        expectHint();
        emit window().displayer.Tick();
        expectNoHint();
        typeText(*field(name).focusProxy(), QString(QChar(0x30B2)));
        expectHint();
        typeText(*field(name).focusProxy(), QStringLiteral("b"));
        QCOMPARE(field(name).Text(), QStringLiteral("ab"));
    }
    void pasted_characters_that_a_tag_cannot_hold_are_dropped_with_a_hint_data() { fieldRows(); }
    void pasted_characters_that_a_tag_cannot_hold_are_dropped_with_a_hint() {
        QFETCH(QString, name);
        paste(field(name), QString::fromUtf8("Vö§RäN ゲーム 🎮 end"));
        QCOMPARE(field(name).Text(), QStringLiteral("VöRäN   end"));
        expectHint();
    }
    void line_breaks_become_blanks_data() { fieldRows(); }
    void line_breaks_become_blanks() {
        QFETCH(QString, name);
        paste(field(name),
              QStringLiteral("one\ntwo\tthree%1four%2five").arg(QChar(0x2028)).arg(QChar(0x2029)));
        QCOMPARE(field(name).Text(), QStringLiteral("one two three four five"));
        expectHint();
    }
    void enter_in_the_multi_line_field_becomes_a_blank() {
        click(window().EditID3Info);
        typeText(*window().EditID3Info.focusProxy(), QStringLiteral("a"));
        QTest::keyClick(window().EditID3Info.focusProxy(), Qt::Key_Return);
        typeText(*window().EditID3Info.focusProxy(), QStringLiteral("b"));
        QCOMPARE(window().EditID3Info.Text(), QStringLiteral("a b"));
    }
    void the_hint_disappears_after_a_second() {
        paste(window().EditID3Title, QStringLiteral("§"));
        expectHint();
        QTRY_COMPARE_WITH_TIMEOUT(window().Label13.Caption(), QStringLiteral("» Game list"), 3000);
    }
    void pasted_text_is_what_the_file_holds() {
        paste(window().EditID3Title, QString::fromUtf8("T§1\nゲ2"));
        paste(window().EditID3Company, QStringLiteral("C"));
        paste(window().EditID3Info, QStringLiteral("I\r\nID3TAG§x"));
        click(window().chameleonButton19);
        const QByteArray bytes = opened->bytesOf(QStringLiteral("a.gb"));
        QCOMPARE(bytes.count("ID3TAG\xA7"), 1);
        QCOMPARE(bytes.count('\n'), 1);
        QVERIFY(bytes.contains("\xA7T1 2\xA7"));
        QVERIFY(bytes.endsWith("I ID3TAGx\xA7"
                               "3000\xA7\r\n"));
        QCOMPARE(window().GameInfo.Caption(), QStringLiteral("I ID3TAGx"));
    }

    void the_placeholder_text_empties_title_and_info_but_not_the_company() {
        for (TextBox* box : {&window().EditID3Title, &window().EditID3Info, &window().EditID3Company}) {
            paste(*box, QStringLiteral("Not available"));
        }
        QCOMPARE(window().EditID3Title.Text(), QString());
        QCOMPARE(window().EditID3Info.Text(), QString());
        QCOMPARE(window().EditID3Company.Text(), QStringLiteral("Not available"));
        QCOMPARE(window().Label2.Caption(), QStringLiteral("125"));
        paste(window().EditID3Title, QStringLiteral("Not available, really"));
        QCOMPARE(window().EditID3Title.Text(), QStringLiteral("Not available, really"));
    }
    void the_placeholder_text_in_a_file_is_shown_only_on_the_view_face() {
        opened->game(QStringLiteral("b.gb"), QByteArray(3000, 'r') + "ID3TAG\xA7"
                                                                     "C\xA7Not available\xA7"
                                                                     "1\xA7Not available\xA7"
                                                                     "3000\xA7\r\n");
        click(window().Refresh);
        opened->chooseRow(1);
        QCOMPARE(window().GameTitle.Caption(), QStringLiteral("Not available"));
        QCOMPARE(window().EditID3Title.Text(), QString());
        QCOMPARE(window().EditID3Info.Text(), QString());
        QCOMPARE(window().EditID3Company.Text(), QStringLiteral("C"));
    }
    void the_counter_shows_what_is_left_of_125_even_below_zero() {
        click(window().EditID3Info);
        typeText(*window().EditID3Info.focusProxy(), QStringLiteral("abc"));
        QCOMPARE(window().Label2.Caption(), QStringLiteral("122"));
        QCOMPARE(window().Label3.Caption(), QStringLiteral("122"));
        QTest::keyClick(window().EditID3Info.focusProxy(), Qt::Key_Backspace);
        QCOMPARE(window().Label2.Caption(), QStringLiteral("123"));
        typeText(*window().EditID3Info.focusProxy(), QString(123, QLatin1Char('x')));
        QCOMPARE(window().Label2.Caption(), QStringLiteral("0"));
        typeText(*window().EditID3Info.focusProxy(), QStringLiteral("yz"));
        QCOMPARE(window().Label2.Caption(), QStringLiteral("-2"));
        QCOMPARE(window().EditID3Info.Text().size(), 127);
    }
    void a_text_longer_than_the_counter_allows_is_saved_completely() {
        paste(window().EditID3Title, QStringLiteral("T"));
        paste(window().EditID3Company, QStringLiteral("C"));
        paste(window().EditID3Info, QString(300, QLatin1Char('i')));
        QCOMPARE(window().Label2.Caption(), QStringLiteral("-175"));
        click(window().chameleonButton19);
        QVERIFY(opened->bytesOf(QStringLiteral("a.gb")).contains(QByteArray(300, 'i')));
    }
    void each_field_announces_that_the_line_gets_too_long_to_show_data() { fieldRows(); }
    void each_field_announces_that_the_line_gets_too_long_to_show() {
        QFETCH(QString, name);
        paste(field(name), QString(900, QLatin1Char('x')));
        expectNoHint();
        paste(field(name), QString(200, QLatin1Char('x')));
        QCOMPARE(window().Label13.Caption(), QStringLiteral("» ") + opened->text("MainMenu", "toolong"));
    }
    void tab_moves_from_field_to_field() {
        click(window().EditID3Title);
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        QTest::keyClick(window().EditID3Title.focusProxy(), Qt::Key_Tab);
        QVERIFY(window().EditID3Company.focusProxy()->hasFocus());
        QTest::keyClick(window().EditID3Company.focusProxy(), Qt::Key_Tab);
        QVERIFY(window().EditID3Info.focusProxy()->hasFocus());
        QTest::keyClick(window().EditID3Info.focusProxy(), Qt::Key_Tab);
        QVERIFY(!window().EditID3Info.focusProxy()->hasFocus());
        QCOMPARE(window().EditID3Info.Text(), QString());
    }
};

TORVANE_TEST(MainFrmTagInputTest)
#include "MainFrmTagInputTest.moc"
