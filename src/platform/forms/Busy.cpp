// SPDX-License-Identifier: MIT
// Serving events during work.
#include "Busy.h"

#include <QTimer>

namespace torvane {

void Busy::askToClose() {
    m_isAskedToClose = true;
    m_pause.quit();
}

bool Busy::goesOn() {
    pumpEvents();
    return !m_isAskedToClose;
}

void Busy::pause(int milliseconds) {
    if (m_isAskedToClose) return;
    QTimer::singleShot(milliseconds, &m_pause, &QEventLoop::quit);
    m_pause.exec();
}

} // namespace torvane
