// SPDX-License-Identifier: MIT
// A window as assistive tools see it. Its name is its title line, or what the design calls it.
#pragma once

#include "AccessibleParts.h"
#include "Form.h"

namespace torvane {

class AccessibleForm : public AccessibleParts {
public:
    explicit AccessibleForm(Form& form);

    /// The application's name for a window without one of its own: the system's title says as much, or less.
    QString text(QAccessible::Text which) const override;
};

} // namespace torvane
