// SPDX-License-Identifier: MIT
// Three skinned buttons on a shown window, and ways to send the first one the mouse.
#pragma once

#include "PaintCounter.h"
#include "PanelForm.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

constexpr OleColour raisedCorner = 0x937C7D;  // the highlight of the button's back
constexpr OleColour pressedCorner = 0x240D0E; // its shadow
constexpr OleColour back = 0x644D4E;
constexpr OleColour backOver = 0x505050;
inline const QPoint middle(50, 15);
inline const QPoint outside(200, 100);

inline ButtonLook lookWith(const char* caption) {
    return {.type = 7, .back = back, .backOver = backOver, .fore = Colours::white, .caption = caption};
}

struct ButtonForm : PanelForm {
    chameleonButton first{*this, "first", {20, 20, 100, 30}, lookWith("&Uno")};
    chameleonButton second{*this, "second", {20, 60, 100, 30}, lookWith("&Dos")};
    chameleonButton third{*this, "third", {20, 100, 100, 30}, lookWith("Tres")};

    ButtonForm() {
        QCursor::setPos(900, 700);
        showAndWait();
        first.setFocus();
    }
    ~ButtonForm() override { QCursor::setPos(900, 700); }

    OleColour corner() { return colourAt(first.grab().toImage(), 0, 0); }
    OleColour surface() { return colourAt(first.grab().toImage(), 2, 2); }

    void send(QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, place, first.mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&first, &event);
    }
    void press(Qt::MouseButton button = Qt::LeftButton) {
        send(QEvent::MouseButtonPress, middle, button, button);
    }
    void release(Qt::MouseButton button = Qt::LeftButton, QPoint place = middle) {
        send(QEvent::MouseButtonRelease, place, button, Qt::NoButton);
    }
    /// Moves the pointer to a place, counted from the first button, which gets the event.
    void point(QPoint place, Qt::MouseButtons held = Qt::NoButton) {
        QCursor::setPos(first.mapToGlobal(place));
        QCoreApplication::processEvents();
        send(QEvent::MouseMove, place, Qt::NoButton, held);
    }
};

} // namespace torvane
