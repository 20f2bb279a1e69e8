// SPDX-License-Identifier: MIT
// Says whether any handler runs just now. Owned by the Runtime, around each handler.
#pragma once

#include <QCoreApplication>

namespace torvane {

/// While one lives, a handler runs, which may serve events between its steps. What must not come between them
/// asks `isAny`, and waits until the handler has returned to the application's own loop.
class RunningHandler : public QObject {
    Q_OBJECT

public:
    RunningHandler() : QObject(QCoreApplication::instance()) {}

    static bool isAny() { return one() != nullptr; }

    /// Runs some work when no handler runs: now, or once those that run have returned. Forgets it if
    /// `context` goes first.
    template <typename Work>
    static void whenNone(QObject& context, Work work) {
        const RunningHandler* running = one();
        if (running == nullptr) return work();
        connect(
            running, &QObject::destroyed, &context, [&context, work] { whenNone(context, work); },
            Qt::QueuedConnection);
    }

private:
    static const RunningHandler* one() {
        return QCoreApplication::instance()->findChild<RunningHandler*>(QString(),
                                                                        Qt::FindDirectChildrenOnly);
    }
};

} // namespace torvane
