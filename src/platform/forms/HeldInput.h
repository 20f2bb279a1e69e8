// SPDX-License-Identifier: MIT
// Holds back what the user does while a handler waits in an event loop of its own. Owned by that handler.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <vector>

namespace torvane {

/// While it lives, no window takes input: neither of mouse and keys, nor presses by assistive tools, nor
/// drops, whatever loop delivers them. Boxes that wait for an answer and appear meanwhile are exempt: without
/// it they would wait for ever. Qt can leave input out of a loop by itself, but with it the requests to close
/// a window, and only out of that one loop.
class HeldInput : public QObject {
    Q_OBJECT

public:
    /// A click on the closer with the left button, or Space while it has the focus, counts as a request to
    /// close its window; null for none. With a closer so does Escape, while its window is active: that window
    /// is closed afterwards.
    explicit HeldInput(const QWidget* closer = nullptr);
    /// Posts the clicks, keys and the request to close a window that have come meanwhile, in their order.
    ~HeldInput() override;

    /// Drops the clicks and keys that have come so far.
    void forget();

    /// Drops the clicks and keys that wait just now, and lets all other waiting events through once. For a
    /// handler that has blocked the thread: they were meant for a program that could not answer.
    static void dropWaiting();

    /// Whether there is one just now. For what reaches the program in other ways than as input, such as the
    /// choice of an entry in a menu that the desktop shows.
    static bool isOn();

signals:
    /// The user wants a form closed: the first request of the window manager, and every use of the closer. It
    /// is held back like all input.
    void closeRequested();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Held {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
    };

    bool isExempt() const;
    bool isEscape(const QEvent& event) const;
    bool usesCloser(const QEvent& event);
    void keep(QObject* receiver, const QEvent& event);
    void takeCloseRequest(QObject* form, const QEvent& event);

    QPointer<const QWidget> m_closer;
    QPointer<QWidget> m_modal; // the box that was open before
    std::vector<Held> m_held;
    bool m_isCloseRequested = false;
    bool m_isCloserDown = false;
};

} // namespace torvane
