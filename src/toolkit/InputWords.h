// SPDX-License-Identifier: MIT
// The numbers with which the controls report mouse and keyboard, and those of mouse pointers.
#pragma once

#include <QCursor>
#include <QPixmap>
#include <Qt>

class QKeyEvent;

namespace torvane::InputWords {

constexpr int leftButton = 1;
constexpr int rightButton = 2;
constexpr int middleButton = 4;

constexpr int keySpace = 32;
constexpr int keyLeft = 37;
constexpr int keyUp = 38;
constexpr int keyRight = 39;
constexpr int keyDown = 40;

/// The number of a mouse button: 1 left, 2 right, 4 middle; 0 for any other and for none.
int button(Qt::MouseButton button);
/// The sum of the held buttons' numbers.
int buttons(Qt::MouseButtons buttons);
/// The sum of the held modifiers' numbers: 1 shift, 2 control, 4 alt.
int shift(Qt::KeyboardModifiers modifiers);
/// The code of a key; letters and digits have that of the capital. 0 for a key without one.
int keyCode(int toolkitKey);
/// The byte (code page 1252) that a key types; 0 for a key that types none.
int keyAscii(const QKeyEvent& event);

constexpr int customPointer = 99;
/// The pointer of a number from 1 to 15; 99 shows the icon. Any other number, and 99 without an icon, is
/// the arrow.
QCursor pointer(int number, const QPixmap& icon);

/// The program's own hands: gloves of 32 x 32 pixels that point.
enum class Hand { overButton, overLink };
/// The picture of a hand at a screen's density; null where the program's pictures are not linked in.
QPixmap handIcon(Hand hand, qreal devicePixelRatio);
/// A hand that points with its finger tip; the platform's own hand for a null icon.
QCursor handCursor(const QPixmap& icon);
/// The hot spot as the platform of that name expects it, from its place in pixels of the design.
QPoint hotSpot(QPoint place, qreal devicePixelRatio, const QString& platform);

} // namespace torvane::InputWords
