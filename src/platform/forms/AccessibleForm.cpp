// SPDX-License-Identifier: MIT
// Role and name of windows.
#include "AccessibleForm.h"

#include <QCoreApplication>

namespace torvane {

AccessibleForm::AccessibleForm(Form& form)
    : AccessibleParts(&form, form.design().inTaskBar ? QAccessible::Window : QAccessible::Dialog) {}

QString AccessibleForm::text(QAccessible::Text which) const {
    if (which != QAccessible::Name) return AccessibleParts::text(which);
    const QString name = widget()->accessibleName().trimmed();
    return name.isEmpty() ? QCoreApplication::applicationName() : name;
}

} // namespace torvane
