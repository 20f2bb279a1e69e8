// SPDX-License-Identifier: MIT
// Mouse, keyboard and focus of the skinned button. Each event reaches the handlers first; then comes
// the button's own reaction, so that a handler still sees the look from before it.
#include "InputWords.h"
#include "chameleonButton.h"

#include <QApplication>
#include <QKeyEvent>
#include <QShortcutEvent>
#include <QTextDocument>
#include <QToolTip>
#include <utility>

namespace torvane {

bool chameleonButton::event(QEvent* event) {
    if (event->type() == QEvent::Shortcut) {
        m_lastButton = InputWords::leftButton;
        containerClick();
        return true;
    }
    if (event->type() == QEvent::ToolTip && !toolTip().isEmpty()) {
        // Tool tips come out of language files: they are shown as plain text, never as markup.
        const QString text = Qt::mightBeRichText(toolTip()) ? Qt::convertFromPlainText(toolTip()) : toolTip();
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text, this);
        return true;
    }
    return ButtonSurface::event(event);
}

void chameleonButton::changeEvent(QEvent* event) {
    const bool ambient = event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange ||
                         event->type() == QEvent::ParentChange;
    if (ambient && m_p.colorScheme != 2) repaintLastState();
    ButtonSurface::changeEvent(event);
}

bool chameleonButton::cursorIsOver() const {
    // No pointer is ever over a disabled button: one that its own click disables loses its hover look.
    const QPoint cursor = QCursor::pos();
    return isEnabled() && rect().contains(mapFromGlobal(cursor)) && QApplication::widgetAt(cursor) == this;
}

void chameleonButton::mousePressEvent(QMouseEvent* event) {
    const int button = InputWords::button(event->button());
    // The side buttons of a mouse have no number and press nothing.
    if (button != 0) press(button, InputWords::shift(event->modifiers()), event->position());
}

void chameleonButton::press(int button, int shift, QPointF place) {
    emit MouseDown(button, shift, static_cast<float>(place.x()), static_cast<float>(place.y()));
    m_lastButton = button;
    if (button != InputWords::rightButton) Repaint(pressed, unlessSame);
}

// A window that opens under a resting pointer sends no move.
void chameleonButton::enterEvent(QEnterEvent* event) { pointerMoved(*event); }

void chameleonButton::mouseMoveEvent(QMouseEvent* event) { pointerMoved(*event); }

void chameleonButton::pointerMoved(const QSinglePointEvent& event) {
    const int buttons = InputWords::buttons(event.buttons());
    emit MouseMove(buttons, InputWords::shift(event.modifiers()), static_cast<float>(event.position().x()),
                   static_cast<float>(event.position().y()));
    if (buttons > InputWords::leftButton) return;
    if (!cursorIsOver()) return Repaint(normal, unlessSame);
    if (buttons == InputWords::leftButton) {
        // During a drag the hover look is off again when the paint ends.
        setOver(true);
        Repaint(pressed, unlessSame);
        setOver(false);
    } else if (!isOver()) {
        m_overTimer.start();
        setOver(true);
        Repaint(normal, always);
        emit MouseOver();
    }
}

void chameleonButton::lookForPointer() {
    if (cursorIsOver()) return;
    m_overTimer.stop();
    setOver(false);
    Repaint(normal, always);
    emit MouseOut();
}

void chameleonButton::mouseReleaseEvent(QMouseEvent* event) {
    const int button = InputWords::button(event->button());
    if (button == 0) return;
    const bool inside = rect().contains(event->position().toPoint());
    emit MouseUp(button, InputWords::shift(event->modifiers()), static_cast<float>(event->position().x()),
                 static_cast<float>(event->position().y()));
    if (button != InputWords::rightButton) Repaint(normal, unlessSame);
    if (inside && button == InputWords::leftButton) containerClick();
}

void chameleonButton::mouseDoubleClickEvent(QMouseEvent* event) {
    // The second press of a double click counts like any other; Qt grabs the mouse by itself.
    if (InputWords::button(event->button()) == 0) return;
    if (m_lastButton == InputWords::leftButton) press(InputWords::leftButton, 0, {});
}

void chameleonButton::containerClick() {
    if (m_lastButton != InputWords::leftButton || !Enabled()) return;
    toggleIfCheckBox();
    repaintAtOnce(normal);
    emit Click();
}

void chameleonButton::toggleIfCheckBox() {
    if (m_p.checkBoxBehaviour) m_p.value = !m_p.value;
}

void chameleonButton::keyPressEvent(QKeyEvent* event) {
    const int code = InputWords::keyCode(event->key());
    emit KeyDown(code, InputWords::shift(event->modifiers()));
    // A space that repeats here but went down on another control presses nothing.
    const bool isForeign = code == InputWords::keySpace && event->isAutoRepeat() && !m_spaceIsDown;
    m_lastKeyCode = isForeign ? 0 : code;
    if (code == InputWords::keySpace && !isForeign) {
        m_spaceIsDown = true;
        Repaint(pressed, unlessSame);
    }
    if (code == InputWords::keyLeft || code == InputWords::keyUp) focusNextPrevChild(false);
    if (code == InputWords::keyRight || code == InputWords::keyDown) focusNextPrevChild(true);
    const int ascii = InputWords::keyAscii(*event);
    if (ascii != 0) emit KeyPress(ascii);
}

void chameleonButton::keyReleaseEvent(QKeyEvent* event) {
    // A held key repeats its press alone.
    if (event->isAutoRepeat()) return;
    const int code = InputWords::keyCode(event->key());
    emit KeyUp(code, InputWords::shift(event->modifiers()));
    if (code == InputWords::keySpace) m_spaceIsDown = false;
    if (m_lastKeyCode != InputWords::keySpace || code != InputWords::keySpace) return;
    toggleIfCheckBox();
    Repaint(normal, unlessSame);
    repaint();
    emit Click();
}

void chameleonButton::focusInEvent(QFocusEvent*) {
    setHasFocus(true);
    repaintLastState();
}

void chameleonButton::focusOutEvent(QFocusEvent*) {
    // Whatever key is down now comes up on another control: here it clicks nothing.
    m_lastKeyCode = 0;
    setHasFocus(false);
    if (std::exchange(m_spaceIsDown, false)) {
        Repaint(normal, always);
    } else {
        repaintLastState();
    }
}

} // namespace torvane
