// SPDX-License-Identifier: MIT
// The view of one entry of the tag database.
#include "support/AccessibleTree.h"
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>

using namespace torvane;
using namespace Qt::StringLiterals;

class DB_InfoTest : public OpenedDatabase {
    Q_OBJECT

    DB_Info& view() const { return *loaded<DB_Info>(); }
    QStringList values() const {
        return {view().Label1.Caption(), view().Label3.Caption(), view().Label5.Caption(),
                view().Label7.Caption(), view().Label9.Caption(), view().Label11.Caption(),
                view().Label15.Caption()};
    }
    QStringList shadows() const {
        return {view().Label22.Caption(), view().Label21.Caption(), view().Label20.Caption(),
                view().Label19.Caption(), view().Label18.Caption(), view().Label17.Caption(),
                view().Label16.Caption()};
    }
    const QStringList tetrisValues{u"SYSTEM "_s,  u"TETRIS "_s,  u"Nintendo "_s,     u"12/03/2002 "_s,
                                   u"torvane "_s, u"GameBoy "_s, u"Falling blocks"_s};

    // Opens the view with an entry of these fields.
    void showEntry(const QByteArray& title, const QByteArray& info, const QByteArray& system = "byn") {
        openDatabase(dbLine({system, title, "Company", "Date", info, "USER", "Author"}));
        showRow(0);
        QVERIFY(QTest::qWaitForWindowExposed(&view()));
    }
    QRect placeOf(const QPlainTextEdit& field) const {
        return {field.mapTo(&view(), QPoint()), field.size()};
    }
    // The fields that take the place of labels.
    QList<QPlainTextEdit*> fields() const {
        QList<QPlainTextEdit*> seen;
        for (auto* field : view().findChildren<QPlainTextEdit*>()) {
            if (field->isVisible()) seen += field;
        }
        return seen;
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void a_double_click_shows_the_entry() {
        openDatabase(wario + tetris);
        showRow(1);
        QCOMPARE(values(), tetrisValues);
        QVERIFY(view().isVisible() && window().isVisible());
        QCOMPARE(view().windowHandle()->transientParent(), window().windowHandle());
    }
    void enter_shows_the_entry() {
        openDatabase(tetris);
        chooseRow(0);
        QTest::keyClick(window().windowHandle(), Qt::Key_Return);
        QCOMPARE(values(), tetrisValues);
    }
    void the_headings_come_from_the_language_file() {
        openDatabase(tetris);
        showRow(0);
        const QStringList headings{view().Label2.Caption(),  view().Label4.Caption(),
                                   view().Label6.Caption(),  view().Label8.Caption(),
                                   view().Label10.Caption(), view().Label12.Caption(),
                                   view().Label14.Caption(), view().Command1.Caption()};
        QCOMPARE(headings, QStringList({u"Entry type"_s, u"Title"_s, u"Company"_s, u"Date"_s, u"Author"_s,
                                        u"Platform"_s, u"Information"_s, u"Close"_s}));
        QCOMPARE(view().windowTitle(), u"OnLine DataBase ··· Entry"_s);
        QCOMPARE(nameOf(view()), u"OnLine DataBase ··· Entry"_s);
    }
    void each_console_has_its_name_with_its_blank_data() {
        QTest::addColumn<QByteArray>("system");
        QTest::addColumn<QString>("text");
        QTest::newRow("byn") << QByteArray("byn") << u"GameBoy "_s;
        QTest::newRow("color") << QByteArray("color") << u"GameBoy Color "_s;
        QTest::newRow("advance") << QByteArray("advance") << u" GameBoy Advance"_s;
    }
    void each_console_has_its_name_with_its_blank() {
        QFETCH(QByteArray, system);
        showEntry("T", "I", system);
        QTEST(view().Label11.Caption(), "text");
    }
    void another_system_word_leaves_the_platform_as_it_was() {
        openDatabase(dbLine({"no", "Nobody", "", "", "", "USER", ""}) + wario);
        click(window().GB_CL);
        click(window().ChameleonButton2);
        showRow(0);
        QCOMPARE(view().Label11.Caption(), u"####"_s);
        showRow(1);
        QCOMPARE(view().Label11.Caption(), u"GameBoy Color "_s);
        showRow(0);
        QCOMPARE(view().Label3.Caption(), u"Nobody "_s);
        QCOMPARE(view().Label11.Caption(), u"GameBoy Color "_s);
    }
    void empty_fields_show_their_blank_only() {
        openDatabase(dbLine({"byn", "", "", "", "", "", ""}));
        showRow(0);
        QCOMPARE(values(), QStringList({u" "_s, u" "_s, u" "_s, u" "_s, u" "_s, u"GameBoy "_s, QString()}));
    }
    void another_entry_replaces_all_values_in_the_open_window() {
        openDatabase(wario + tetris);
        showRow(0);
        const DB_Info* first = &view();
        QCOMPARE(values()[1], u"Wario "_s);
        showRow(1);
        QCOMPARE(&view(), first);
        QCOMPARE(values(), tetrisValues);
        QVERIFY(view().isVisible());
    }
    void every_shadow_follows_its_value() {
        openDatabase(tetris);
        showRow(0);
        QCOMPARE(shadows(), values());
    }
    void both_close_buttons_close_it_and_the_database_stays() {
        openDatabase(tetris);
        for (const bool isAtFoot : {true, false}) {
            showRow(0);
            QVERIFY(QTest::qWaitForWindowExposed(&view()));
            isAtFoot ? click(view().Command1) : click(view().chameleonButton1);
            QVERIFY(loaded<DB_Info>() == nullptr);
            QVERIFY(window().isVisible());
            collectGone();
        }
    }

    // Long texts
    void texts_that_fit_are_shown_by_their_labels() {
        showEntry("A title of usual length",
                  "A sentence. Another one, and a third that takes a second line.");
        QCOMPARE(fields().size(), 0);
        QVERIFY(isSeen(view().Label3) && isSeen(view().Label15) && isSeen(view().Label16));
    }
    void a_long_title_is_shown_in_full_on_two_lines() {
        const QByteArray title = "The Legend of Zelda: A Link to the Past & Four Swords";
        showEntry(title, "short");
        QCOMPARE(fields().size(), 1);
        const QPlainTextEdit& field = *fields().first();
        QCOMPARE(field.toPlainText(), QString::fromLatin1(title) + u' ');
        QCOMPARE(field.verticalScrollBar()->maximum(), 0);
        QVERIFY(!isSeen(view().Label3) && !isSeen(view().Label21));
        QVERIFY(!placeOf(field).intersects(view().Label1.geometry()));
        QVERIFY(!placeOf(field).intersects(view().Label5.geometry()));
    }
    void a_long_information_can_be_scrolled_by_keys_to_its_end() {
        const QByteArray info = QByteArray("Many words about a game. ").repeated(100) + "END";
        showEntry("T", info);
        QCOMPARE(fields().size(), 1);
        QPlainTextEdit& field = *fields().first();
        QCOMPARE(field.toPlainText(), QString::fromLatin1(info));
        QVERIFY(field.verticalScrollBar()->isVisible());
        QVERIFY(view().rect().contains(placeOf(field)));
        QVERIFY(!placeOf(field).intersects(view().Command1.geometry()));
        QVERIFY(!placeOf(field).intersects(view().Label14.geometry()));
        field.setFocus();
        QTest::keyClick(view().windowHandle(), Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(field.verticalScrollBar()->value(), field.verticalScrollBar()->maximum());
    }
    void a_word_longer_than_a_line_is_broken_and_not_cut() {
        showEntry(QByteArray(60, 'W'), "I");
        QCOMPARE(fields().size(), 1);
        QVERIFY(fields().first()->document()->firstBlock().layout()->lineCount() > 1);
    }
    void a_long_text_cannot_be_changed_but_copied_and_the_tab_key_leaves_it() {
        showEntry("T", QByteArray("Many words. ").repeated(200));
        QPlainTextEdit& field = *fields().first();
        QVERIFY(field.isReadOnly());
        field.setFocus();
        const QString before = field.toPlainText();
        typeText(field, u"x"_s);
        QCOMPARE(field.toPlainText(), before);
        QTest::keyClick(view().windowHandle(), Qt::Key_Tab);
        QVERIFY(!field.hasFocus());
    }
    void a_long_text_is_called_like_its_heading() {
        showEntry("T", QByteArray("Many words. ").repeated(200));
        QCOMPARE(nameOf(*fields().first()), u"Information"_s);
    }
    void markup_is_shown_as_it_stands() {
        const QByteArray info = "<b>bold</b> &amp; " + QByteArray("<i>x</i> ").repeated(200);
        showEntry("<h1>T</h1>", info);
        QCOMPARE(view().Label3.Caption(), u"<h1>T</h1> "_s);
        QCOMPARE(fields().first()->toPlainText(), QString::fromLatin1(info));
    }
    void a_shorter_entry_brings_the_labels_back() {
        openDatabase(dbLine({"byn", QByteArray(300, 'W'), "", "", QByteArray(3000, 'i')}) + tetris);
        showRow(0);
        QVERIFY(QTest::qWaitForWindowExposed(&view()));
        QCOMPARE(fields().size(), 2);
        showRow(1);
        QCOMPARE(fields().size(), 0);
        QVERIFY(isSeen(view().Label3) && isSeen(view().Label15));
    }
};

TORVANE_TEST(DB_InfoTest)
#include "DB_InfoTest.moc"
