// SPDX-License-Identifier: MIT
// The numbers of mouse buttons, keys and pointers.
#include "toolkit/InputWords.h"
#include "WithoutPictures.h"
#include "support/TestMain.h"

#include <QKeyEvent>
#include <QtTest>

using namespace torvane;

class InputWordsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { removePictures(); }

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
        const std::pair<int, int> codes[]{
            {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},       {Qt::Key_Return, 13},   {Qt::Key_Enter, 13},
            {Qt::Key_Shift, 16},    {Qt::Key_Control, 17},  {Qt::Key_Alt, 18},      {Qt::Key_Pause, 19},
            {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},   {Qt::Key_Space, 32},    {Qt::Key_PageUp, 33},
            {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},      {Qt::Key_Home, 36},     {Qt::Key_Left, 37},
            {Qt::Key_Up, 38},       {Qt::Key_Right, 39},    {Qt::Key_Down, 40},     {Qt::Key_Insert, 45},
            {Qt::Key_Delete, 46},   {Qt::Key_0, 48},        {Qt::Key_9, 57},        {Qt::Key_A, 65},
            {Qt::Key_Z, 90},        {Qt::Key_F1, 112},      {Qt::Key_F16, 127},     {Qt::Key_F17, 0},
            {Qt::Key_Hiragana, 0},  {Qt::Key_Ampersand, 0}, {Qt::Key_BraceLeft, 0},
        };
        for (const auto& [key, code] : codes) {
            QVERIFY2(InputWords::keyCode(key) == code, qPrintable(QString::number(code)));
        }
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
        const Qt::CursorShape shapes[]{Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,
                                       Qt::ArrowCursor,   Qt::SizeAllCursor,   Qt::SizeBDiagCursor,
                                       Qt::SizeVerCursor, Qt::SizeFDiagCursor, Qt::SizeHorCursor,
                                       Qt::UpArrowCursor, Qt::WaitCursor,      Qt::ForbiddenCursor,
                                       Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor};
        for (int number = 1; number <= 15; ++number) {
            QCOMPARE(InputWords::pointer(number, {}).shape(), shapes[number - 1]);
        }
        QCOMPARE(InputWords::pointer(99, {}).shape(), Qt::ArrowCursor);
        QCOMPARE(InputWords::pointer(99, icon).shape(), Qt::BitmapCursor);
        QCOMPARE(InputWords::pointer(1, icon).shape(), Qt::ArrowCursor);
        QCOMPARE(InputWords::pointer(1234, {}).shape(), Qt::ArrowCursor);
        QCOMPARE(InputWords::pointer(99, icon).hotSpot(), QPoint(0, 0));
    }

    void without_the_programs_pictures_the_hands_are_the_platforms() {
        for (const auto hand : {InputWords::Hand::overButton, InputWords::Hand::overLink}) {
            const QPixmap icon = InputWords::handIcon(hand, 1.0);
            QVERIFY(icon.isNull());
            QCOMPARE(InputWords::handCursor(icon).shape(), Qt::PointingHandCursor);
        }
    }

    void a_hot_spot_is_given_to_x11_in_the_pictures_own_dots() {
        QCOMPARE(InputWords::hotSpot({10, 2}, 1.0, QStringLiteral("xcb")), QPoint(10, 2));
        QCOMPARE(InputWords::hotSpot({10, 2}, 2.0, QStringLiteral("xcb")), QPoint(20, 4));
        QCOMPARE(InputWords::hotSpot({10, 2}, 2.0, QStringLiteral("wayland")), QPoint(10, 2));
    }
};

TORVANE_TEST(InputWordsTest)
#include "InputWordsTest.moc"
