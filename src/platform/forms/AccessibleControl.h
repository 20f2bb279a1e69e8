// SPDX-License-Identifier: MIT
// A control as assistive tools see it: name, role, state, and a press for what can be clicked.
#pragma once

#include "AccessibleParts.h"
#include "Control.h"

namespace torvane {

class AccessibleControl : public AccessibleParts {
public:
    explicit AccessibleControl(Control& control) : AccessibleParts(&control), m_control(control) {}

    QAccessible::Role role() const override { return m_control.accessibleRole(); }
    QString text(QAccessible::Text which) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    /// A press happens a moment later: its handler may open a box and wait, and the tool must not wait with
    /// it.
    void doAction(const QString& name) override;

private:
    QString name() const;

    Control& m_control;
};

} // namespace torvane
