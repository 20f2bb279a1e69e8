// SPDX-License-Identifier: MIT
// A box that the user ticks or clears.
#pragma once

#include "ToggleControl.h"

namespace torvane {

class CheckBox : public ToggleControl {
    Q_OBJECT

public:
    CheckBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("check box"); }
    /// 1 if it is ticked, 0 if it is clear.
    int Value() const { return isChecked() ? 1 : 0; }
    /// Takes 0 or 1, and reports a click even if it had that value. Fails for any other number.
    void setValue(int value);
};

} // namespace torvane
