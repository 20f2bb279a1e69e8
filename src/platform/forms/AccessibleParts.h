// SPDX-License-Identifier: MIT
// What assistive tools see of a window or control that holds others: the parts that say something. Left out
// are shadows, ornaments, and stores that lie out of sight.
#pragma once

#include <QAccessibleWidget>

namespace torvane {

class AccessibleParts : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    int childCount() const override { return static_cast<int>(parts().size()); }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    QWidgetList parts() const;
};

/// Lets the forms and controls made from now on answer assistive tools.
void installAccessibility();

} // namespace torvane
