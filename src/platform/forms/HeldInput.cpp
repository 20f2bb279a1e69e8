// SPDX-License-Identifier: MIT
// Sees all events of the application before their receivers do.
#include "HeldInput.h"
#include "Form.h"
#include "Runtime.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>

namespace torvane {

namespace {
enum class Input {
    none,    ///< not of the user
    kept,    ///< delivered later
    dropped, ///< meaningless later
    close    ///< a request to close a window
};

Input kindOf(QEvent::Type type) {
    switch (type) {
    case QEvent::Close: return Input::close;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu: return Input::kept;
    case QEvent::MouseMove:
    case QEvent::ShortcutOverride:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: return Input::dropped;
    default: return Input::none;
    }
}
} // namespace

HeldInput::HeldInput(const QWidget* closer)
    : QObject(QCoreApplication::instance()), m_closer(closer), m_modal(QApplication::activeModalWidget()) {
    QCoreApplication::instance()->installEventFilter(this);
}

HeldInput::~HeldInput() {
    for (Held& held : m_held) {
        if (held.receiver != nullptr) QCoreApplication::postEvent(held.receiver, held.event.release());
    }
}

void HeldInput::forget() {
    std::erase_if(m_held, [](const Held& held) { return held.event->type() != QEvent::Close; });
}

void HeldInput::dropWaiting() {
    HeldInput waiting;
    pumpEvents();
    waiting.forget();
}

bool HeldInput::isOn() {
    return QCoreApplication::instance()->findChild<HeldInput*>(QString(), Qt::FindDirectChildrenOnly) !=
           nullptr;
}

bool HeldInput::eventFilter(QObject* receiver, QEvent* event) {
    const Input kind = kindOf(event->type());
    if (kind == Input::none || isExempt()) return false;
    // Only forms are closed by the user; Qt closes windows of its own, such as tool tips, in the same way.
    if (kind == Input::close && qobject_cast<Form*>(receiver) == nullptr) return false;
    event->ignore();
    if (isEscape(*event)) {
        takeCloseRequest(m_closer->window(), QCloseEvent());
        return true;
    }
    if (kind == Input::close) takeCloseRequest(receiver, *event);
    if (kind == Input::kept) keep(receiver, *event);
    if (kind == Input::kept && usesCloser(*event)) emit closeRequested();
    return true;
}

// The way out for whoever has no mouse: the Tab key, which would lead to the closer, is held back.
bool HeldInput::isEscape(const QEvent& event) const {
    if (event.type() != QEvent::KeyPress || m_closer == nullptr) return false;
    return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape && m_closer->isVisible() &&
           m_closer->window()->isActiveWindow();
}

// What the closer takes for a click, too. Events of the user arrive at the window and not at the control that
// they are meant for.
bool HeldInput::usesCloser(const QEvent& event) {
    if (m_closer == nullptr || !m_closer->isVisible()) return false;
    if (event.type() == QEvent::KeyPress) {
        return m_closer->hasFocus() && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Space;
    }
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseButtonRelease) return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    if (mouse.button() != Qt::LeftButton) return false;
    const bool isOn = m_closer->rect().contains(m_closer->mapFromGlobal(mouse.globalPosition()).toPoint());
    const bool wasOn = std::exchange(m_isCloserDown, isOn && event.type() == QEvent::MouseButtonPress);
    return isOn && wasOn && event.type() == QEvent::MouseButtonRelease;
}

bool HeldInput::isExempt() const {
    const QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && modal != m_modal;
}

void HeldInput::keep(QObject* receiver, const QEvent& event) {
    m_held.push_back({receiver, std::unique_ptr<QEvent>(event.clone())});
}

void HeldInput::takeCloseRequest(QObject* form, const QEvent& event) {
    if (std::exchange(m_isCloseRequested, true)) return;
    keep(form, event);
    emit closeRequested();
}

} // namespace torvane
