// SPDX-License-Identifier: MIT
// Tables from Qt's input to the controls' numbers.
#include "InputWords.h"
#include "platform/base/CodePage1252.h"
#include "platform/forms/Pictures.h"

#include <QGuiApplication>
#include <QKeyEvent>

namespace torvane::InputWords {

int button(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton: return leftButton;
    case Qt::RightButton: return rightButton;
    case Qt::MiddleButton: return middleButton;
    default: return 0;
    }
}

int buttons(Qt::MouseButtons buttons) {
    int sum = 0;
    for (const auto each : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (buttons.testFlag(each)) sum += button(each);
    }
    return sum;
}

int shift(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) + (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

int keyCode(int toolkitKey) {
    const bool isPlain = toolkitKey == Qt::Key_Space ||
                         (toolkitKey >= Qt::Key_0 && toolkitKey <= Qt::Key_9) ||
                         (toolkitKey >= Qt::Key_A && toolkitKey <= Qt::Key_Z);
    if (isPlain) return toolkitKey;
    if (toolkitKey >= Qt::Key_F1 && toolkitKey <= Qt::Key_F16) return 112 + toolkitKey - Qt::Key_F1;
    switch (toolkitKey) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab: return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter: return 13;
    case Qt::Key_Shift: return 16;
    case Qt::Key_Control: return 17;
    case Qt::Key_Alt: return 18;
    case Qt::Key_Pause: return 19;
    case Qt::Key_CapsLock: return 20;
    case Qt::Key_Escape: return 27;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return keyLeft;
    case Qt::Key_Up: return keyUp;
    case Qt::Key_Right: return keyRight;
    case Qt::Key_Down: return keyDown;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    default: return 0;
    }
}

int keyAscii(const QKeyEvent& event) {
    if (event.text().isEmpty() || event.key() == Qt::Key_Delete) return 0;
    return static_cast<unsigned char>(CodePage1252::toBytes(event.text().first(1)).front());
}

QCursor pointer(int number, const QPixmap& icon) {
    if (number == customPointer && !icon.isNull()) return QCursor(icon, 0, 0);
    switch (number) {
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 5:
    case 15: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case 11: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    default: return Qt::ArrowCursor;
    }
}

QPixmap handIcon(Hand hand, qreal devicePixelRatio) {
    const auto name =
        hand == Hand::overLink ? QStringLiteral("cursor-link.png") : QStringLiteral("cursor-hand.png");
    return Pictures::load(name, devicePixelRatio);
}

QCursor handCursor(const QPixmap& icon) {
    if (icon.isNull()) return Qt::PointingHandCursor;
    constexpr QPoint fingerTip(10, 2);
    const QPoint spot = hotSpot(fingerTip, icon.devicePixelRatio(), QGuiApplication::platformName());
    return QCursor(icon, spot.x(), spot.y());
}

QPoint hotSpot(QPoint place, qreal devicePixelRatio, const QString& platform) {
    // On X11 Qt passes the number on unchanged, and the display counts the picture's own dots.
    return platform == QStringLiteral("xcb") ? place * devicePixelRatio : place;
}

} // namespace torvane::InputWords
