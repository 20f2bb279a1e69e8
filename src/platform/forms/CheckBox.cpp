// SPDX-License-Identifier: MIT
// A check box over Qt's.
#include "CheckBox.h"
#include "../base/RuntimeFailure.h"
#include "QuietToggle.h"

#include <QCheckBox>

namespace torvane {

namespace {
using Box = QuietToggle<QCheckBox>;
} // namespace

CheckBox::CheckBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : ToggleControl(parent, name, rect, look, *new Box) {
    connect(&button(), &QAbstractButton::toggled, this, [this] {
        if (!static_cast<Box&>(button()).isQuiet()) emit Click();
    });
}

void CheckBox::setValue(int value) {
    if (value != 0 && value != 1) throw RuntimeFailure(RuntimeFailure::invalidProperty);
    static_cast<Box&>(button()).quietly([&] { button().setChecked(value == 1); });
    emit Click();
}

} // namespace torvane
