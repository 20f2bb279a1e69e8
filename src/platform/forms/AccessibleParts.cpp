// SPDX-License-Identifier: MIT
// The parts of windows and controls, and the making of their interfaces.
#include "AccessibleParts.h"
#include "AccessibleControl.h"
#include "AccessibleForm.h"
#include "AccessibleRowList.h"

namespace torvane {

namespace {
bool isPart(const QWidget& widget) {
    if (widget.isWindow()) return false;
    const auto* control = qobject_cast<const Control*>(&widget);
    return control == nullptr || control->isExposed();
}

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* list = qobject_cast<RowList*>(object)) return new AccessibleRowList(*list);
    if (auto* control = qobject_cast<Control*>(object)) return new AccessibleControl(*control);
    if (auto* form = qobject_cast<Form*>(object)) return new AccessibleForm(*form);
    return nullptr;
}
} // namespace

QWidgetList AccessibleParts::parts() const {
    QWidgetList found;
    for (QObject* child : widget()->children()) {
        auto* part = qobject_cast<QWidget*>(child);
        if (part != nullptr && isPart(*part)) found.append(part);
    }
    return found;
}

QAccessibleInterface* AccessibleParts::child(int index) const {
    return QAccessible::queryAccessibleInterface(parts().value(index));
}

int AccessibleParts::indexOfChild(const QAccessibleInterface* child) const {
    return static_cast<int>(parts().indexOf(qobject_cast<QWidget*>(child->object())));
}

// Not by the rectangles: panels take turns at one place.
QAccessibleInterface* AccessibleParts::childAt(int x, int y) const {
    QWidget* hit = widget()->childAt(widget()->mapFromGlobal(QPoint(x, y)));
    while (hit != nullptr && hit->parentWidget() != widget()) hit = hit->parentWidget();
    return parts().contains(hit) ? QAccessible::queryAccessibleInterface(hit) : nullptr;
}

void installAccessibility() {
    // Qt keeps each factory once.
    QAccessible::installFactory(makeInterface);
}

} // namespace torvane
