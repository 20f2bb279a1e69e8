// SPDX-License-Identifier: MIT
// The numbers of mouse buttons, keys and pointers.
#include "toolkit/InputWords.h"

#include <QKeyEvent>
#include <QtTest>

using namespace torvane;

class InputWordsTest : public QObject {
    Q_OBJECT

private slots:
    void buttons_are_1_2_and_4() {
        QCOMPARE(InputWords::button(Qt::LeftButton), 1);
        QCOMPARE(InputWords::button(Qt::RightButton), 2);
        QCOMPARE(InputWords::button(Qt::MiddleButton), 4);
        QCOMPARE(InputWords::button(Qt::BackButton), 0);
        QCOMPARE(InputWords::buttons(Qt::LeftButton | Qt::MiddleButton | Qt::BackButton), 5);
    }

    void modifiers_add_up() {
        QCOMPARE(InputWords::shift(Qt::NoModifier), 0);
        QCOMPARE(InputWords::shift(Qt::ShiftModifier | Qt::AltModifier), 5);
        QCOMPARE(InputWords::shift(Qt::ControlModifier), 2);
    }

    void keys_have_their_codes() {
        QCOMPARE(InputWords::keyCode(Qt::Key_Space), 32);
        QCOMPARE(InputWords::keyCode(Qt::Key_Left), 37);
        QCOMPARE(InputWords::keyCode(Qt::Key_Up), 38);
        QCOMPARE(InputWords::keyCode(Qt::Key_Right), 39);
        QCOMPARE(InputWords::keyCode(Qt::Key_Down), 40);
        QCOMPARE(InputWords::keyCode(Qt::Key_A), 65);
        QCOMPARE(InputWords::keyCode(Qt::Key_9), 57);
        QCOMPARE(InputWords::keyCode(Qt::Key_F1), 112);
        QCOMPARE(InputWords::keyCode(Qt::Key_Enter), 13);
        QCOMPARE(InputWords::keyCode(Qt::Key_Hiragana), 0);
    }

    void typed_bytes_are_those_of_the_code_page() {
        const auto typed = [](int key, const char* text) {
            return InputWords::keyAscii(
                QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, QString::fromUtf8(text)));
        };
        QCOMPARE(typed(Qt::Key_A, "a"), 97);
        QCOMPARE(typed(Qt::Key_Ntilde, "ñ"), 0xF1);
        QCOMPARE(typed(Qt::Key_Return, "\r"), 13);
        QCOMPARE(typed(Qt::Key_Left, ""), 0);
        QCOMPARE(typed(Qt::Key_Delete, "\x7f"), 0);
    }

    void pointers_have_their_shapes() {
        QPixmap icon(8, 8);
        icon.fill(Qt::red);
        QCOMPARE(InputWords::pointer(1, {}).shape(), Qt::ArrowCursor);
        QCOMPARE(InputWords::pointer(11, {}).shape(), Qt::WaitCursor);
        QCOMPARE(InputWords::pointer(99, {}).shape(), Qt::ArrowCursor);
        QCOMPARE(InputWords::pointer(99, icon).shape(), Qt::BitmapCursor);
        QCOMPARE(InputWords::pointer(1, icon).shape(), Qt::ArrowCursor);
        QCOMPARE(InputWords::pointer(1234, {}).shape(), Qt::ArrowCursor);
    }
};

QTEST_MAIN(InputWordsTest)
#include "InputWordsTest.moc"
