// SPDX-License-Identifier: MIT
// Notes what is to be seen each time that events are served: while it lives, one event waits at every moment,
// and takes a look when it is delivered.
#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QStringList>
#include <functional>

namespace torvane {

class EventRuns : public QObject {
public:
    /// The look puts what matters to the test into words.
    explicit EventRuns(std::function<QString()> look) : m_look(std::move(look)) {
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, [this] {
            if (!m_waits) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
            m_waits = true;
        });
    }

    /// What was to be seen, one entry for each time.
    QStringList seen;

protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) return QObject::event(event);
        m_waits = false;
        seen << m_look();
        return true;
    }

private:
    std::function<QString()> m_look;
    bool m_waits = false;
};

} // namespace torvane
