// SPDX-License-Identifier: MIT
// An option button over Qt's radio button, and the groups.
#include "OptionButton.h"

#include <QButtonGroup>
#include <QRadioButton>

namespace torvane {

namespace {
// Each button lies in a control of its own, so that Qt's own grouping by parents would find no group.
QButtonGroup& groupOf(QWidget& container) {
    auto* group = container.findChild<QButtonGroup*>(QString(), Qt::FindDirectChildrenOnly);
    return group != nullptr ? *group : *new QButtonGroup(&container);
}
} // namespace

OptionButton::OptionButton(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : ToggleControl(parent, name, rect, look, *new QRadioButton) {
    groupOf(parent).addButton(&button());
}

void OptionButton::setValue(bool chosen) {
    // A group that has a choice lets nobody take it away.
    button().group()->setExclusive(chosen);
    button().setChecked(chosen);
    button().group()->setExclusive(true);
    if (chosen) emit Click();
}

} // namespace torvane
