// SPDX-License-Identifier: MIT
// Edits of text fields: what the user does not touch stays character by character, whatever he does beside
// it.
#include "platform/forms/TextBox.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>

using namespace torvane;
using namespace Qt::StringLiterals;

class TextBoxEditsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<TextBox> line;
    std::unique_ptr<TextBox> area;

    TextBox& box() const {
        QFETCH_GLOBAL(bool, severalLines);
        return severalLines ? *area : *line;
    }
    static QWidget& field(const TextBox& box) { return *box.focusProxy(); }
    static void key(const TextBox& box, Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&field(box), code, modifiers);
    }
    static void type(const TextBox& box, const char* keys) {
        QTest::keyClicks(&field(box), QString::fromLatin1(keys));
    }
    static void press(const TextBox& box, QKeySequence::StandardKey keys) {
        QTest::keySequence(&field(box), QKeySequence(keys));
    }
    static void paste(const TextBox& box, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        press(box, QKeySequence::Paste);
    }
    static void compose(const TextBox& box, const QString& preedit, const QString& committed) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(&field(box), &event);
    }
    static bool isLine(const TextBox& box) { return qobject_cast<QLineEdit*>(&field(box)) != nullptr; }
    static void goToEnd(const TextBox& box) {
        press(box, isLine(box) ? QKeySequence::MoveToEndOfLine : QKeySequence::MoveToEndOfDocument);
    }
    static void goTo(const TextBox& box, int place) {
        press(box, isLine(box) ? QKeySequence::MoveToStartOfLine : QKeySequence::MoveToStartOfDocument);
        for (int i = 0; i < place; ++i) key(box, Qt::Key_Right);
    }
    static int cursorOf(const TextBox& box) {
        return isLine(box) ? dynamic_cast<QLineEdit&>(field(box)).cursorPosition()
                           : dynamic_cast<QPlainTextEdit&>(field(box)).textCursor().position();
    }
    static QString withoutDigits(const QString& piece) {
        QString kept = piece;
        return kept.removeIf([](QChar c) { return c.isDigit(); });
    }
    static QString latin(const QString& piece) {
        QString kept = piece;
        return kept.removeIf([](QChar c) { return c.unicode() > 0xFF; });
    }

private slots:
    void initTestCase_data() {
        QTest::addColumn<bool>("severalLines");
        QTest::newRow("one line") << false;
        QTest::newRow("several lines") << true;
    }
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        line = std::make_unique<TextBox>(*form, "line", DesignRect{5, 5, 205, 15}, TextBox::Look{});
        TextBox::Look look;
        look.multiLine = true;
        area = std::make_unique<TextBox>(*form, "area", DesignRect{5, 30, 205, 99}, look);
        QVERIFY(form->appear());
        box().setFocus();
    }
    void cleanup() {
        line.reset();
        area.reset();
        form.reset();
    }

    void letters_at_both_ends_leave_the_rest_as_it_was_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("no-break space") << u"a\u00A0b \u00A0"_s;
        QTest::newRow("CR LF") << u"one\r\ntwo\r\n"_s;
        QTest::newRow("CR") << u"\rone\rtwo"_s;
        QTest::newRow("all line ends") << u"1\r\n2\r3\n4\r\r\n5\n\n\r6\u20287\u20298"_s;
        QTest::newRow("control characters") << u"a\x01"
                                               "b\tc\x1F\x7Fz"_s;
        QTest::newRow("null character") << QString(u"a\0b"_s);
        QTest::newRow("undefined bytes of the code page") << u"\u0081\u008D\u008F\u0090\u009D"_s;
        QTest::newRow("characters that Qt uses for itself") << u"a\uFFFCb\uFDD0c\uFDD1d\uFEFF"_s;
        QTest::newRow("emoji") << u"\U0001F600\U0001F468\u200D\U0001F469"_s;
        QTest::newRow("half an emoji") << QString(u"a"_s + QChar(0xD83D) + u"b"_s);
        QTest::newRow("long") << QString(40'000, u'x');
    }
    void letters_at_both_ends_leave_the_rest_as_it_was() {
        QFETCH(QString, text);
        box().setText(text);
        goTo(box(), 0);
        type(box(), "y");
        QCOMPARE(box().Text(), u"y"_s + text);
        goToEnd(box());
        type(box(), "z");
        QCOMPARE(box().Text(), u"y"_s + text + u"z"_s);
    }
    void a_pasted_no_break_space_stays_one() {
        paste(box(), u"a\u00A0b"_s);
        QCOMPARE(box().Text(), u"a\u00A0b"_s);
    }
    void what_is_copied_here_is_pasted_with_its_no_break_spaces() {
        box().setText(u"a\u00A0b"_s);
        press(box(), QKeySequence::SelectAll);
        press(box(), QKeySequence::Cut);
        QCOMPARE(box().Text(), QString());
        press(box(), QKeySequence::Paste);
        QCOMPARE(box().Text(), u"a\u00A0b"_s);
    }
    void only_the_selected_piece_is_replaced() {
        box().setText(u"a\u00A0bcd\u00A0e"_s);
        goTo(box(), 2);
        key(box(), Qt::Key_Right, Qt::ShiftModifier);
        key(box(), Qt::Key_Right, Qt::ShiftModifier);
        type(box(), "x");
        QCOMPARE(box().Text(), u"a\u00A0xd\u00A0e"_s);
    }
    void undo_and_redo_bring_back_all_characters() {
        const QString text = u"a\u00A0b\r\nc\rd\n\r\ne"_s;
        box().setText(text);
        press(box(), QKeySequence::SelectAll);
        type(box(), "x");
        QCOMPARE(box().Text(), u"x"_s);
        for (int i = 0; i < 3; ++i) press(box(), QKeySequence::Undo);
        QCOMPARE(box().Text(), text);
        for (int i = 0; i < 3; ++i) press(box(), QKeySequence::Redo);
        QCOMPARE(box().Text(), u"x"_s);
    }
    void what_the_program_sets_is_not_undone() {
        type(box(), "typed");
        box().setText(u"set"_s);
        press(box(), QKeySequence::Undo);
        QCOMPARE(box().Text(), u"set"_s);
    }
    void undo_brings_back_what_the_filter_would_refuse() {
        box().setInputFilter(withoutDigits);
        box().setText(u"a12"_s);
        QSignalSpy refusals(&box(), &TextBox::inputRefused);
        goToEnd(box());
        key(box(), Qt::Key_Backspace);
        QCOMPARE(box().Text(), u"a1"_s);
        press(box(), QKeySequence::Undo);
        QCOMPARE(box().Text(), u"a12"_s);
        QCOMPARE(refusals.size(), 0);
    }
    void undo_never_brings_back_what_was_refused() {
        box().setInputFilter(withoutDigits);
        type(box(), "a7b");
        paste(box(), u"c8d"_s);
        QCOMPARE(box().Text(), u"abcd"_s);
        for (const auto keys : {QKeySequence::Undo, QKeySequence::Redo}) {
            for (int i = 0; i < 8; ++i) {
                press(box(), keys);
                QVERIFY2(withoutDigits(box().Text()) == box().Text(), qPrintable(box().Text()));
            }
        }
        QCOMPARE(box().Text(), u"abcd"_s);
    }
    void a_refused_letter_leaves_the_steps_before_it_to_undo() {
        box().setInputFilter(withoutDigits);
        type(box(), "ab7");
        press(box(), QKeySequence::Undo);
        QCOMPARE(box().Text(), QString());
    }
    void the_cursor_stays_where_a_letter_is_refused_beside_its_like() {
        box().setInputFilter(withoutDigits);
        box().setText(u"11"_s);
        goTo(box(), 1);
        type(box(), "1");
        QCOMPARE(box().Text(), u"11"_s);
        QCOMPARE(cursorOf(box()), 1);
    }
    void the_filter_gets_what_was_entered_and_not_its_like_beside_it() {
        QStringList pieces;
        box().setText(u"abab"_s);
        box().setInputFilter([&](const QString& piece) {
            pieces << piece;
            return piece;
        });
        goTo(box(), 1);
        paste(box(), u"ba"_s);
        QCOMPARE(pieces.value(0), u"ba"_s);
        QCOMPARE(box().Text(), u"ababab"_s);
    }
    void an_emoji_is_taken_and_deleted_as_a_whole() {
        paste(box(), u"\U0001F600\U0001F601"_s);
        QCOMPARE(box().Text(), u"\U0001F600\U0001F601"_s);
        key(box(), Qt::Key_Backspace);
        QCOMPARE(box().Text(), u"\U0001F600"_s);
    }
    void no_half_of_an_emoji_is_left_by_the_filter() {
        box().setText(u"a\U0001F600b"_s);
        box().setInputFilter(latin);
        goTo(box(), 1);
        key(box(), Qt::Key_Right, Qt::ShiftModifier);
        paste(box(), u"\U0001F601"_s); // has the first half in common
        QCOMPARE(box().Text(), u"ab"_s);
    }
    void a_composed_text_is_taken_when_it_is_complete() {
        box().setText(u"a\u00A0b"_s);
        goToEnd(box());
        compose(box(), u"k"_s, {});
        QCOMPARE(box().Text(), u"a\u00A0b"_s);
        compose(box(), {}, u"か\u00A0"_s);
        QCOMPARE(box().Text(), u"a\u00A0bか\u00A0"_s);
    }
    void a_composed_text_passes_the_filter() {
        box().setInputFilter(latin);
        box().setText(u"ab"_s);
        goTo(box(), 1);
        QSignalSpy refusals(&box(), &TextBox::inputRefused);
        compose(box(), {}, u"éか"_s);
        QCOMPARE(box().Text(), u"aéb"_s);
        QCOMPARE(refusals.size(), 1);
        QCOMPARE(cursorOf(box()), 2);
    }
    void nothing_can_be_dropped_into_a_field() {
        QMimeData data;
        data.setText(u"dropped"_s);
        QWidget* under = field(box()).childAt(3, 3);
        QDragEnterEvent enter(QPoint(3, 3), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.setAccepted(false);
        QCoreApplication::sendEvent(under != nullptr ? under : &field(box()), &enter);
        QVERIFY(!enter.isAccepted());
        QVERIFY(!field(box()).acceptDrops());
    }
    void a_change_is_reported_once_an_edit_and_not_for_a_refused_letter() {
        box().setInputFilter(withoutDigits);
        box().setText(u"a"_s);
        QSignalSpy changes(&box(), &TextBox::Change);
        type(box(), "b");
        QCOMPARE(changes.size(), 1);
        type(box(), "7");
        QCOMPARE(changes.size(), 1);
        paste(box(), u"c7d"_s);
        QCOMPARE(changes.size(), 2);
    }

    // Fields of several lines alone
    void a_joined_line_takes_its_end_along_and_leaves_the_others_theirs() {
        area->setText(u"one\r\ntwo\rthree\nfour"_s);
        goTo(*area, 3);
        key(*area, Qt::Key_Delete);
        QCOMPARE(area->Text(), u"onetwo\rthree\nfour"_s);
        press(*area, QKeySequence::Undo);
        QCOMPARE(area->Text(), u"one\r\ntwo\rthree\nfour"_s);
    }
    void a_new_line_ends_as_the_first_one_does_data() {
        QTest::addColumn<QString>("end");
        for (const char* end : {"\r\n", "\r", "\n"}) {
            QTest::newRow(QByteArray(end).toHex().constData()) << QString::fromLatin1(end);
        }
    }
    void a_new_line_ends_as_the_first_one_does() {
        QFETCH(QString, end);
        area->setText(u"one"_s + end + u"two"_s);
        goToEnd(*area);
        key(*area, Qt::Key_Return);
        type(*area, "x");
        key(*area, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(area->Text(), u"one"_s + end + u"two"_s + end + u"x"_s + end);
    }
    void the_filter_gets_line_ends_as_lf() {
        QStringList pieces;
        area->setInputFilter([&](const QString& piece) {
            pieces << piece;
            return piece;
        });
        key(*area, Qt::Key_Return);
        key(*area, Qt::Key_Return, Qt::ShiftModifier);
        paste(*area, u"a\r\nb\rc\u2028d\u2029e"_s);
        const QStringList expected{u"\n"_s, u"\n"_s, u"a\nb\nc\nd\ne"_s};
        QCOMPARE(pieces, expected);
        QCOMPARE(area->Text(), expected.join(QString()));
    }
};

TORVANE_TEST(TextBoxEditsTest)
#include "TextBoxEditsTest.moc"
