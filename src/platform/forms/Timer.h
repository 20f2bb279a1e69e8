// SPDX-License-Identifier: MIT
// A timer of a form. Its handler is guarded like every other one.
#pragma once

#include "Control.h"

#include <QTimer>

namespace torvane {

class Timer : public Component {
    Q_OBJECT

public:
    Timer(Form& form, const char* name, int intervalMilliseconds, bool enabled);

    QString kind() const override { return QStringLiteral("timer"); }
    int Interval() const { return m_timer.interval(); }
    bool Enabled() const { return m_timer.isActive(); }
    void setEnabled(bool enabled);

signals:
    void Tick();

private:
    QTimer m_timer;
};

} // namespace torvane
