// SPDX-License-Identifier: MIT
// Windows of fixed design on top of Qt's widgets.
#include "Form.h"
#include "DroppedPath.h"
#include "Screen.h"
#include "WindowingSystem.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace torvane {

namespace {
constexpr int ownerDelay = 300;  // ms that a window waits for its owner
constexpr int focusDelay = 1000; // ms in which a window manager moves the focus of a closed window

Qt::WindowFlags flagsOf(const FormDesign& design) {
    // A tool window is what X11 window managers leave out of the task bar.
    Qt::WindowFlags flags = design.inTaskBar ? Qt::Window : Qt::Tool;
    if (design.border == FormDesign::none) flags |= Qt::FramelessWindowHint;
    if (design.border == FormDesign::fixedDialog) flags |= Qt::MSWindowsFixedSizeDialogHint;
    return flags;
}

// A window whose state was set while it was hidden gets it when it is shown.
void giveNativeState(QWidget& window) {
    QWindow* handle = window.windowHandle();
    if (window.isVisible() || handle == nullptr) return;
    const Qt::WindowStates wanted = window.windowState() & ~Qt::WindowActive;
    // On X11 a window that was minimised once, and brought back by the window manager, still has the hint to
    // appear as an icon when it is shown again. Qt takes that back only with a change of the state.
    const bool mayHaveHint = QGuiApplication::platformName() == QStringLiteral("xcb");
    if (mayHaveHint && !wanted.testFlag(Qt::WindowMinimized)) {
        handle->setWindowStates(wanted | Qt::WindowMinimized);
    }
    if (handle->windowStates() != wanted) handle->setWindowStates(wanted);
}
} // namespace

Form::Form(Runtime& runtime, const FormDesign& design)
    : QWidget(nullptr, flagsOf(design)), m_runtime(runtime), m_design(design), m_picture(design.picture) {
    setObjectName(QString::fromUtf8(design.name));
    setWindowTitle(QString::fromUtf8(design.title));
    setAttribute(Qt::WA_OpaquePaintEvent);
    // The end of the program is decided by its own rules and not by which windows are open.
    setAttribute(Qt::WA_QuitOnClose, false);
    if (design.border == FormDesign::sizable) {
        resize(design.clientSize);
    } else {
        fixSize(design.clientSize);
    }
}

void Form::Show(Form* owner) {
    if (!m_placed) takeStartPosition();
    m_awaited = nullptr;
    if (owner != nullptr && !owner->isVisible()) return waitFor(*owner);
    if (owner != nullptr) follow(*owner);
    appear();
}

void Form::appear() {
    if (m_isSentAway) appearAnew();
    giveNativeState(*this);
    show();
    raise();
    activateWindow();
    showWaiting();
}

// A window that opens another one in its load is shown a little later itself. Without the wait the other one
// would appear, vanish and appear again.
void Form::waitFor(Form& owner) {
    m_awaited = &owner;
    owner.m_waiting.append(this);
    if (isVisible()) return appear();
    QTimer::singleShot(ownerDelay, this, [this] {
        if (m_awaited != nullptr && !isVisible()) appear();
    });
}

// A window manager takes notice of an owner when a window appears, and only of one that is there by then.
void Form::follow(Form& owner) {
    winId(); // makes the native window, which alone can follow another one
    if (windowHandle()->transientParent() == owner.windowHandle()) return;
    hide();
    windowHandle()->setTransientParent(owner.windowHandle());
}

void Form::showWaiting() {
    for (const QPointer<Form>& owned : std::exchange(m_waiting, {})) {
        if (owned != nullptr && owned->m_awaited == this) owned->Show(this);
    }
}

void Form::Hide() {
    m_awaited = nullptr;
    m_isSentAway = false;
    hide();
}

// On Wayland a program can minimise its window, and not bring it back. One that is shown anew is not
// minimised.
void Form::appearAnew() {
    m_isSentAway = false;
    hide();
    show();
}

void Form::bringToFront() {
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    if (m_isSentAway) appearAnew();
    raise();
    activateWindow();
}

// As long as the closed window seems to have the focus, Qt would set it without a word to the window manager,
// which then gives it to another window. So this waits until the window manager has done so.
void Form::takeFocusOfClosed() {
    if (!isVisible() || m_design.inTaskBar) return;
    const QWindow* focused = QGuiApplication::focusWindow();
    if (focused == nullptr || !windowHandle()->isAncestorOf(focused)) return activateWindow();
    auto* wait = new QObject(this);
    QTimer::singleShot(focusDelay, wait, &QObject::deleteLater);
    const auto takeIt = [this, wait](const QWindow* now) {
        wait->deleteLater();
        if (now == nullptr || now == windowHandle()->transientParent()) activateWindow();
    };
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, wait, takeIt, Qt::SingleShotConnection);
}

void Form::Unload() {
    if (m_unloaded) return;
    m_unloaded = true;
    Hide();
    onUnload();
    emit unloaded();
}

void Form::goWhenUnused() {
    m_isToGo = true;
    if (m_holds == 0) deleteLater();
}

Form::Hold::~Hold() {
    if (--m_form.m_holds == 0 && m_form.m_isToGo) m_form.deleteLater();
}

Form::State Form::windowStateWord() const {
    if (isMinimized()) return minimised;
    return isMaximized() ? maximised : normal;
}

void Form::setWindowStateWord(State state) {
    const Qt::WindowState wanted = state == minimised   ? Qt::WindowMinimized
                                   : state == maximised ? Qt::WindowMaximized
                                                        : Qt::WindowNoState;
    // The platform would put a hidden window that is no longer minimised on the screen: an empty one, since
    // Qt still takes it for hidden.
    if (!isVisible()) return overrideWindowState(wanted);
    setWindowState(wanted);
    if (state == minimised) {
        m_isSentAway = WindowingSystem::isWayland();
    } else {
        if (m_isSentAway) appearAnew();
        activateWindow();
    }
}

void Form::moveTo(int leftTwips, int topTwips) {
    m_placed = true;
    move(qRound(static_cast<double>(leftTwips) / twipsPerPixel),
         qRound(static_cast<double>(topTwips) / twipsPerPixel));
}

void Form::setHeight(int twips) {
    const QSize size(width(), qRound(static_cast<double>(twips) / twipsPerPixel));
    m_design.border == FormDesign::sizable ? resize(size) : fixSize(size);
}

// Window managers count sizes in steps from the base size. With 1.5 dots to the pixel Qt makes each step two
// dots, and would have them cut the last one off.
void Form::fixSize(QSize size) {
    setBaseSize(size);
    setFixedSize(size);
}

void Form::setPicture(const Pictures::Deferred& picture) {
    m_picture = picture;
    update();
}

void Form::takeStartPosition() {
    m_placed = true;
    if (m_design.start != FormDesign::centreOfScreen) return;
    // On the screen where the user is at work.
    const QWidget* last = m_runtime.lastActive;
    const QRect screen = last != nullptr ? Screen::geometryOf(*last) : Screen::geometry();
    move(screen.topLeft() + QPoint((screen.width() - width()) / 2, (screen.height() - height()) / 2));
}

void Form::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QPixmap& shown = picture();
    const QSizeF covered = shown.deviceIndependentSize();
    if (shown.isNull() || shown.hasAlpha() || covered.width() < width() || covered.height() < height()) {
        painter.fillRect(event->rect(), Colours::toQColor(m_design.backColour));
    }
    if (shown.isNull()) return;
    const QRectF target = QRectF(event->rect()) & QRectF(QPointF(), covered);
    const qreal ratio = shown.devicePixelRatio();
    painter.drawPixmap(target, shown, QRectF(target.topLeft() * ratio, target.size() * ratio));
}

void Form::closeEvent(QCloseEvent* event) {
    // The form's own rules decide; the window goes, if it goes, through Unload.
    event->ignore();
    m_runtime.guarded([this] { queryUnload(); });
}

void Form::dragEnterEvent(QDragEnterEvent* event) {
    if (isEnabled() && QApplication::activeModalWidget() == nullptr && droppedPath(*event->mimeData())) {
        event->acceptProposedAction();
    }
}

void Form::dropEvent(QDropEvent* event) {
    const auto path = droppedPath(*event->mimeData());
    if (!path) return;
    // Taken as a copy, whatever the user's keys ask for: nobody but us may remove what is dropped.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QTimer::singleShot(0, this, [this, path = *path] { emit pathDropped(path); });
}

void Form::run(const std::function<void()>& handler, Failure failure) {
    const Hold hold(*this);
    failure == Failure::ends ? m_runtime.guarded(handler) : m_runtime.reporting(handler);
}

void Form::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange) emit resized();
    // The user has brought it back, or the compositor minimises nothing: showing it anew would only move it.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        m_isSentAway = false;
        m_runtime.lastActive = this;
    }
    QWidget::changeEvent(event);
}

} // namespace torvane
