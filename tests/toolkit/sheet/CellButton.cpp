// SPDX-License-Identifier: MIT
// States of a button of the sheet.
#include "CellButton.h"
#include "SheetPicture.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace torvane {

namespace {
// What shows through a button of type 11.
class Stripes : public QWidget {
public:
    explicit Stripes(QWidget& parent, const QRect& place) : QWidget(&parent) { setGeometry(place); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (int y = 0; y < height(); ++y) {
            const OleColour shade = y / 4 % 2 == 0 ? 0x6A5A3A : 0x3A2A5A;
            painter.fillRect(0, y, width(), 1, Colours::toQColor(shade));
        }
    }
};
} // namespace

CellButton::CellButton(QWidget& parent, QPoint place, const ButtonSetup& setup)
    : chameleonButton(
          parent, "cell",
          {double(place.x()), double(place.y()), double(setup.size.width()), double(setup.size.height())},
          setup.look),
      m_keepsFocus(setup.keepsFocus) {
    const qreal ratio = devicePixelRatioF();
    setColorScheme(setup.colorScheme);
    setPicturePosition(setup.picturePosition);
    setUseMaskColor(setup.useMaskColor);
    setPictureNormal(sheetPicture(setup.picture, setup.look.mask, false, ratio));
    if (setup.changesPicture) setPictureOver(sheetPicture(setup.picture, setup.look.mask, true, ratio));
    setDisplayAsDefault(setup.isDefault);
    if (setup.look.type != 11) return;
    m_stripes = new Stripes(parent, geometry());
    m_stripes->stackUnder(this);
    m_stripes->show();
}

void CellButton::setProperties(ButtonState state) {
    setEnabled(state != ButtonState::disabled);
    setCheckBoxBehaviour(state == ButtonState::checked);
    setValue(state == ButtonState::checked);
}

bool CellButton::bring(ButtonState state) {
    const bool wantsFocus = m_keepsFocus || state == ButtonState::focused;
    if (wantsFocus) setFocus();
    if (wantsFocus && !hasFocus()) return false;
    setProperties(state);
    if (state != ButtonState::over && state != ButtonState::pressed) return true;
    if (!point()) return false;
    if (state == ButtonState::pressed) press();
    return true;
}

bool CellButton::point() {
    const QPoint middle = rect().center();
    QCursor::setPos(mapToGlobal(middle));
    QCoreApplication::processEvents();
    QMouseEvent move(QEvent::MouseMove, middle, mapToGlobal(middle), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(this, &move);
    return isOver();
}

void CellButton::press() {
    const QPoint middle = rect().center();
    QMouseEvent down(QEvent::MouseButtonPress, middle, mapToGlobal(middle), Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(this, &down);
}

void CellButton::hold(ButtonState state) {
    m_held = state;
    setProperties(state);
    showHeld();
}

void CellButton::showHeld() {
    const bool isPressed = m_held == ButtonState::pressed;
    setHasFocus(hasFocus() || m_held == ButtonState::focused ||
                (m_keepsFocus && m_held != ButtonState::disabled));
    setOver(isPressed || m_held == ButtonState::over);
    Repaint(isPressed ? pressed : normal, always);
}

void CellButton::showEvent(QShowEvent* event) {
    chameleonButton::showEvent(event);
    if (m_held) showHeld();
}

void CellButton::enterEvent(QEnterEvent* event) {
    if (m_held) {
        m_held.reset();
        setHasFocus(hasFocus());
        setOver(false);
        Repaint(normal, always);
    }
    chameleonButton::enterEvent(event);
}

} // namespace torvane
