// SPDX-License-Identifier: MIT
// Text fields: what the program sets stays as it is, what the user enters passes the filter.
#include "platform/forms/TextBox.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <algorithm>

using namespace torvane;
using namespace Qt::StringLiterals;

class TextBoxTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<TextBox> line;
    std::unique_ptr<TextBox> area;

    static QLineEdit& field(TextBox& box) { return *box.findChild<QLineEdit*>(); }
    static QPlainTextEdit& field2(TextBox& box) { return *box.findChild<QPlainTextEdit*>(); }
    static QString withoutDigits(const QString& piece) {
        QString kept = piece;
        return kept.removeIf([](QChar c) { return c.isDigit(); });
    }
    void type(const char* keys) const { QTest::keyClicks(line->focusProxy(), QString::fromLatin1(keys)); }
    static void paste(TextBox& box, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(box.focusProxy(), Qt::Key_V, Qt::ControlModifier);
    }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        line = std::make_unique<TextBox>(*form, "line", DesignRect{5, 5, 205, 15},
                                         TextBox::Look{"", Fonts::V8b, Colours::white, 0x4A3933});
        area = std::make_unique<TextBox>(*form, "area", DesignRect{5, 30, 205, 99},
                                         TextBox::Look{"", Fonts::M8, Colours::white, 0x4A3933, true});
        QVERIFY(form->appear());
    }
    void cleanup() {
        line.reset();
        area.reset();
        form.reset();
    }

    void return_is_reported_by_a_field_of_one_line() {
        const QSignalSpy returns(line.get(), &TextBox::entered);
        QTest::keyClick(line->focusProxy(), Qt::Key_Return);
        QTest::keyClick(line->focusProxy(), Qt::Key_Enter);
        QCOMPARE(returns.size(), 2);
        QCOMPARE(line->Text(), QString());
    }
    void a_field_outside_of_the_window_is_a_store_without_an_editor() {
        TextBox store(*form, "store", DesignRect{5, 700, 205, 15}, TextBox::Look{"kept"});
        store.setVisible(true);
        QCOMPARE(store.Text(), u"kept"_s);
        QVERIFY(store.focusProxy() == nullptr);
        QCOMPARE(store.focusPolicy(), Qt::NoFocus);
    }
    void what_the_program_sets_stays_character_by_character_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << u"Tetris"_s;
        QTest::newRow("line ends") << u"one\r\ntwo\nthree\rfour"_s;
        QTest::newRow("control characters") << u"a\x01"
                                               "b\tc\x1F\x7Fz"_s;
        QTest::newRow("null character") << QString(u"a\0b"_s);
        QTest::newRow("blanks around") << u"  a  b  "_s;
        QTest::newRow("blank that does not break") << u"a\u00A0b"_s;
        QTest::newRow("undefined bytes of the code page") << u"\u0081\u008D\u008F\u0090\u009D"_s;
        QTest::newRow("separators of lines and paragraphs") << u"a\u2028b\u2029c"_s;
        QTest::newRow("markup") << u"<b>x</b> &amp;"_s;
        QTest::newRow("long") << QString(200, u'x');
    }
    void what_the_program_sets_stays_character_by_character() {
        QFETCH(QString, text);
        for (TextBox* box : {line.get(), area.get()}) {
            box->setInputFilter([](const QString&) { return QString(); });
            QSignalSpy refusals(box, &TextBox::inputRefused);
            box->setText(text);
            QCoreApplication::processEvents();
            QCOMPARE(box->Text(), text);
            QCOMPARE(refusals.size(), 0);
        }
    }
    void a_text_with_line_ends_stays_whole_through_focus_and_cursor_keys() {
        area->setText(u"one\r\ntwo"_s);
        area->setFocus();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Up, Qt::Key_Home}) {
            QTest::keyClick(area->focusProxy(), key);
        }
        line->setFocus();
        QCOMPARE(area->Text(), u"one\r\ntwo"_s);
    }
    void a_change_is_reported_once_and_only_for_another_text() {
        QSignalSpy changes(line.get(), &TextBox::Change);
        line->setText(u"one"_s);
        QCOMPARE(changes.size(), 1);
        line->setText(u"one"_s);
        QCOMPARE(changes.size(), 1);
        type("x");
        QCOMPARE(changes.size(), 2);
    }
    void the_shown_text_is_the_set_one_even_if_the_user_had_typed() {
        type("typed");
        line->setText(u"set"_s);
        QCOMPARE(field(*line).text(), u"set"_s);
        QCOMPARE(line->Text(), u"set"_s);
    }

    void typed_text_is_taken() {
        type("Tetris 2");
        QCOMPARE(line->Text(), u"Tetris 2"_s);
    }
    void the_filter_leaves_out_what_is_typed() {
        line->setInputFilter(withoutDigits);
        QSignalSpy refusals(line.get(), &TextBox::inputRefused);
        type("a1b2c");
        QCOMPARE(line->Text(), u"abc"_s);
        QCOMPARE(field(*line).text(), u"abc"_s);
        QCOMPARE(refusals.size(), 2);
    }
    void the_filter_works_in_the_middle_and_the_cursor_keeps_its_place() {
        line->setInputFilter(withoutDigits);
        line->setText(u"Tetris"_s);
        field(*line).setCursorPosition(3);
        type("7");
        QCOMPARE(line->Text(), u"Tetris"_s);
        QCOMPARE(field(*line).cursorPosition(), 3);
        type("x8y");
        QCOMPARE(line->Text(), u"Tetxyris"_s);
        QCOMPARE(field(*line).cursorPosition(), 5);
    }
    void what_is_pasted_passes_the_filter_as_one_piece() {
        QStringList pieces;
        line->setInputFilter([&](const QString& piece) {
            pieces.append(piece);
            return withoutDigits(piece);
        });
        line->setText(u"ab"_s);
        field(*line).setCursorPosition(1);
        QSignalSpy refusals(line.get(), &TextBox::inputRefused);
        paste(*line, u"x12y3"_s);
        QCOMPARE(pieces, QStringList{u"x12y3"_s});
        QCOMPARE(line->Text(), u"axyb"_s);
        QCOMPARE(field(*line).cursorPosition(), 3);
        QCOMPARE(refusals.size(), 1);
    }
    void what_is_pasted_over_a_selection_passes_the_filter() {
        line->setInputFilter(withoutDigits);
        line->setText(u"Tetris"_s);
        field(*line).setSelection(1, 4);
        paste(*line, u"9o9"_s);
        QCOMPARE(line->Text(), u"Tos"_s);
    }
    void the_filter_does_not_touch_what_the_program_had_set() {
        line->setInputFilter(withoutDigits);
        line->setText(u"Super 64"_s);
        field(*line).setCursorPosition(0);
        type("x1");
        QCOMPARE(line->Text(), u"xSuper 64"_s);
    }
    void a_deletion_is_not_refused() {
        line->setInputFilter(withoutDigits);
        line->setText(u"a12"_s);
        field(*line).setCursorPosition(3);
        QSignalSpy refusals(line.get(), &TextBox::inputRefused);
        QTest::keyClick(line->focusProxy(), Qt::Key_Backspace);
        QCOMPARE(line->Text(), u"a1"_s);
        QCOMPARE(refusals.size(), 0);
    }
    void a_replacing_filter_puts_its_text_in_place_of_the_entered_one() {
        line->setInputFilter([](QString piece) { return piece.replace(u'#', u"--"_s); });
        line->setText(u"ab"_s);
        field(*line).setCursorPosition(1);
        type("#");
        QCOMPARE(line->Text(), u"a--b"_s);
        QCOMPARE(field(*line).cursorPosition(), 3);
    }

    void several_lines_are_typed_into_a_field_for_them() {
        QTest::keyClicks(area->focusProxy(), u"one"_s);
        QTest::keyClick(area->focusProxy(), Qt::Key_Return);
        QTest::keyClicks(area->focusProxy(), u"two"_s);
        QCOMPARE(area->Text(), u"one\ntwo"_s);
    }
    void return_adds_no_line_to_a_field_of_one() {
        type("one");
        QTest::keyClick(line->focusProxy(), Qt::Key_Return);
        QCOMPARE(line->Text(), u"one"_s);
    }
    void the_filter_of_a_field_of_several_lines_keeps_the_cursor_in_place() {
        area->setInputFilter(withoutDigits);
        area->setText(u"one\ntwo\nthree"_s);
        QTextCursor cursor = field2(*area).textCursor();
        cursor.setPosition(5);
        field2(*area).setTextCursor(cursor);
        QSignalSpy refusals(area.get(), &TextBox::inputRefused);
        QTest::keyClicks(area->focusProxy(), u"5x"_s);
        QCOMPARE(area->Text(), u"one\ntxwo\nthree"_s);
        QCOMPARE(field2(*area).textCursor().position(), 6);
        QCOMPARE(refusals.size(), 1);
    }
    void lines_may_be_refused_by_the_filter() {
        area->setInputFilter([](QString piece) { return piece.remove(u'\n'); });
        paste(*area, u"one\r\ntwo\nthree"_s);
        QCOMPARE(area->Text(), u"onetwothree"_s);
        QTest::keyClick(area->focusProxy(), Qt::Key_Return);
        QCOMPARE(area->Text(), u"onetwothree"_s);
    }
    void the_tab_key_leaves_the_field_of_several_lines() {
        area->setText(u"x"_s);
        area->setFocus();
        QTest::keyClick(area->focusProxy(), Qt::Key_Tab);
        QCOMPARE(area->Text(), u"x"_s);
        QVERIFY(!area->focusProxy()->hasFocus());
    }
    void the_colours_of_the_design_are_seen() {
        line->setText(u"MMMM"_s);
        const QImage image = imageOf(*line);
        QVERIFY(hasColour(image, QColor(0x33, 0x39, 0x4A)));
        QVERIFY(hasColour(image, Qt::white));
        QCOMPARE(image.size(), QSize(205, 15));
    }
};

TORVANE_TEST(TextBoxTest)
#include "TextBoxTest.moc"
