// SPDX-License-Identifier: MIT
// Looks at the program's windows and brings them to the front.
#include "ForegroundWindows.h"
#include "Program.h"
#include "platform/forms/HeldInput.h"

#include <QApplication>
#include <QWindow>
#include <algorithm>

namespace torvane {

namespace {
bool isSeen(const Form* window) { return window != nullptr && window->isVisible(); }

bool isOwned(const Form& window) {
    return window.windowHandle() != nullptr && window.windowHandle()->transientParent() != nullptr;
}

struct Shown {
    Window window;
    Form* form;

    int layer() const {
        if (isOwned(*form)) return 2;
        return window == Window::MainFrm || window == Window::Torvette ? 0 : 1;
    }
};
} // namespace

PopupMenu& ForegroundWindows::menu() { return m_program.load<Menuing>()->popup; }

void ForegroundWindows::mainWindowMinimised(bool minimised) {
    if (Menuing* menuing = m_program.loaded<Menuing>()) menuing->offerMainWindow(minimised);
}

bool ForegroundWindows::canAsk() const {
    return QApplication::activeModalWidget() == nullptr && !HeldInput::isOn() &&
           m_program.loaded<TorvMsg>() == nullptr;
}

bool ForegroundWindows::takesOrders() const {
    const Form* window = m_program.windows.ifLoaded(face());
    return canAsk() && isSeen(window) && window->isEnabled() && !m_program.desk.isReplaced();
}

Window ForegroundWindows::face() const {
    return isSeen(m_program.windows.ifLoaded(Window::Torvette)) ? Window::Torvette : Window::MainFrm;
}

void ForegroundWindows::hide(Window window) {
    Form* shown = m_program.windows.ifLoaded(window);
    if (shown == nullptr) return;
    shown->Hide();
    if (shown->windowStateWord() == Form::minimised) shown->setWindowStateWord(Form::normal);
}

void ForegroundWindows::show(Window window) {
    Form* shown = m_program.windows.load(window);
    if (shown == nullptr) return;
    // It may have been hidden when the exit was called off: then nobody has enabled it.
    if (m_program.loaded<TorvMsg>() == nullptr) shown->setEnabled(true);
    // It may have been minimised while it was hidden.
    if (shown->windowStateWord() == Form::minimised) shown->setWindowStateWord(Form::normal);
    shown->Show();
}

void ForegroundWindows::whileHidden(const std::function<void()>& work) {
    const Window hidden = face();
    hide(hidden);
    work();
    show(hidden);
}

QList<Form*> ForegroundWindows::shownWindows() const {
    QList<Shown> shown;
    Windows::forEach([&]<typename W>() {
        if (Form* form = m_program.loaded<W>(); isSeen(form)) shown.append({W::id, form});
    });
    std::stable_sort(shown.begin(), shown.end(),
                     [](const Shown& a, const Shown& b) { return a.layer() < b.layer(); });
    QList<Form*> forms;
    for (const Shown& one : shown) forms.append(one.form);
    return forms;
}

// Window managers hide what belongs to a minimised window.
Form* ForegroundWindows::frontWindow() const {
    Form* front = nullptr;
    for (Form* window : shownWindows()) {
        if (!isOwned(*window)) front = window;
    }
    return front != nullptr && front->windowStateWord() == Form::minimised ? nullptr : front;
}

QWidget* ForegroundWindows::topmost() const {
    if (QWidget* box = QApplication::activeModalWidget()) return box;
    const QList<Form*> shown = shownWindows();
    return shown.isEmpty() ? nullptr : shown.last();
}

void ForegroundWindows::bringBack() {
    if (QWidget* box = QApplication::activeModalWidget()) {
        box->raise();
        box->activateWindow();
        return;
    }
    const QList<Form*> shown = shownWindows();
    for (Form* window : shown) window->bringToFront();
    if (!shown.isEmpty()) return;
    const bool isCompact = m_program.windows.ifLoaded(Window::Torvette) != nullptr;
    show(isCompact ? Window::Torvette : Window::MainFrm);
}

} // namespace torvane
