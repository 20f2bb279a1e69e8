// SPDX-License-Identifier: MIT
// A check box over Qt's.
#include "CheckBox.h"
#include "../base/RuntimeFailure.h"

#include <QCheckBox>

namespace torvane {

CheckBox::CheckBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : ToggleControl(parent, name, rect, look, *new QCheckBox) {}

void CheckBox::setValue(int value) {
    if (value != 0 && value != 1) throw RuntimeFailure(RuntimeFailure::invalidProperty);
    button().setChecked(value == 1);
    emit Click();
}

} // namespace torvane
