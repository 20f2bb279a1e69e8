// SPDX-License-Identifier: MIT
// Waits until a window or a part of it has painted a change, in any of its widgets.
#pragma once

#include <QApplication>
#include <QPaintEvent>
#include <QWidget>

namespace torvane::bench {

class Repaints : public QObject {
public:
    /// Of a window, or of a widget with all that lies on it.
    explicit Repaints(const QWidget& top) : m_top(top) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->isWidgetType()) {
            const auto* painted = static_cast<QWidget*>(object);
            m_painted = m_painted || painted == &m_top || m_top.isAncestorOf(painted);
        }
        return false;
    }
    void awaitOne() {
        m_painted = false;
        while (!m_painted) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

private:
    const QWidget& m_top;
    bool m_painted = false;
};

} // namespace torvane::bench
