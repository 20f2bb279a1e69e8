// SPDX-License-Identifier: MIT
// Watches a window and its strip for what asks for a menu.
#include "MenuOpener.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QShortcut>

namespace torvane {

namespace {
bool isKeyboardRequest(const QEvent& event) {
    return event.type() == QEvent::ContextMenu &&
           static_cast<const QContextMenuEvent&>(event).reason() == QContextMenuEvent::Keyboard;
}
} // namespace

MenuOpener::MenuOpener(Form& window, Label& strip) : QObject(&window), m_window(window), m_strip(strip) {
    window.installEventFilter(this);
    strip.installEventFilter(this);
    // Panels keep all keys to themselves, so a shortcut it is.
    auto* shiftF10 = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), &window);
    connect(shiftF10, &QShortcut::activated, this, &MenuOpener::pressMenuKey);
}

// A filter sees the mouse of disabled widgets, too.
bool MenuOpener::eventFilter(QObject* watched, QEvent* event) {
    if (!m_window.isEnabled()) return false;
    if (isOnStrip(watched, *event)) {
        emit wanted(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        return true;
    }
    if (watched != &m_window || !isKeyboardRequest(*event)) return false;
    emit wanted(placeForKeys());
    return true;
}

// What Qt makes of the menu key: a request that goes from the focus up to the window.
void MenuOpener::pressMenuKey() {
    QWidget* focus = m_window.focusWidget();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, QPoint(), placeForKeys());
    QCoreApplication::sendEvent(focus != nullptr ? focus : &m_window, &request);
}

// The button alone: in the middle of a drag a menu would take the mouse away.
bool MenuOpener::isOnStrip(const QObject* watched, const QEvent& event) const {
    return watched == &m_strip && event.type() == QEvent::MouseButtonPress &&
           static_cast<const QMouseEvent&>(event).buttons() == Qt::RightButton;
}

QPoint MenuOpener::placeForKeys() const { return m_strip.mapToGlobal(QPoint(0, m_strip.height())); }

} // namespace torvane
