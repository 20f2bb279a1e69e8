// SPDX-License-Identifier: MIT
// One of several choices. All option buttons that lie directly in the same form or panel are one group: at
// most one of them is chosen.
#pragma once

#include "ToggleControl.h"

namespace torvane {

class OptionButton : public ToggleControl {
    Q_OBJECT

public:
    OptionButton(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("option"); }
    bool Value() const { return isChecked(); }
    /// Chooses this one, with a click even if it was chosen, or takes the choice away and leaves none. The
    /// others of its group report no click.
    void setValue(bool chosen);
};

} // namespace torvane
