// SPDX-License-Identifier: MIT
// Timers of forms.
#include "Timer.h"
#include "Form.h"

namespace torvane {

Timer::Timer(Form& form, const char* name, int intervalMilliseconds, bool enabled) : Component(form, name) {
    m_timer.setInterval(intervalMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &Timer::Tick);
    setEnabled(enabled);
}

void Timer::setEnabled(bool enabled) {
    if (!enabled) {
        m_timer.stop();
    } else if (!m_timer.isActive()) {
        m_timer.start();
    }
}

} // namespace torvane
