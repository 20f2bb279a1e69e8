// SPDX-License-Identifier: MIT
// Waits until a window has painted a change, in any of its widgets.
#pragma once

#include <QApplication>
#include <QPaintEvent>
#include <QWidget>

namespace torvane::bench {

class Repaints : public QObject {
public:
    explicit Repaints(const QWidget& window) : m_window(window) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool isPaint = event->type() == QEvent::Paint && object->isWidgetType();
        m_painted = m_painted || (isPaint && static_cast<QWidget*>(object)->window() == &m_window);
        return false;
    }
    void awaitOne() {
        m_painted = false;
        while (!m_painted) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    const QWidget& m_window;
    bool m_painted = false;
};

} // namespace torvane::bench
