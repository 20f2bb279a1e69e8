// SPDX-License-Identifier: MIT
// The windows in front of the user.
#pragma once

#include "core/Foreground.h"
#include "core/Window.h"

#include <QList>

class QWidget;

namespace torvane {

class Form;
class Program;

class ForegroundWindows : public Foreground {
public:
    explicit ForegroundWindows(Program& program) : m_program(program) {}

    // Foreground
    PopupMenu& menu() override;
    void mainWindowMinimised(bool minimised) override;
    bool takesOrders() const override;
    bool canAsk() const override;
    void bringBack() override;
    void whileHidden(const std::function<void()>& work) override;

    /// The compact window if it is on screen; else the main window, whether it is or not.
    Window face() const;
    /// Whether any window is on screen, minimised or not.
    bool isOnScreen() const { return !shownWindows().isEmpty(); }
    /// The window that is above all others of the program: a message box or the last one that `bringBack`
    /// brings to the front; null if none is on screen.
    QWidget* topmost() const;
    /// Hides a window. It comes back as an ordinary one, even if it was minimised.
    void hide(Window window);
    /// Shows a window. It takes input again, unless the question is open that keeps it from that.
    void show(Window window);
    /// The window that a question may belong to; null if that would not show it.
    Form* frontWindow() const;

private:
    /// What is on screen, the face first, and each window after the one that it belongs to.
    QList<Form*> shownWindows() const;

    Program& m_program;
};

} // namespace torvane
