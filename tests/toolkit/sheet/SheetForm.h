// SPDX-License-Identifier: MIT
// The whole sheet as one window: a block for each group, labelled, with live buttons that hold their states
// until the mouse comes. Where it is shown or saved is the program's affair.
#pragma once

#include "../PanelForm.h"
#include "ButtonSheet.h"

#include <memory>

namespace torvane {

/// Where the blocks lie on the sheet: two to a line, a wide one alone.
struct SheetPlan {
    QSize size;
    std::vector<QPoint> cells; ///< per group, the corner of its first cell

    static SheetPlan of(const std::vector<SheetGroup>& groups);
};

class SheetForm : private FakeDesktop, public Form {
public:
    static constexpr OleColour back = 0x4A3933;

    SheetForm() : SheetForm(SheetPlan::of(buttonSheet())) {}
    const SheetPlan& plan() const { return m_plan; }

private:
    explicit SheetForm(const SheetPlan& plan);
    void addLabel(const QRect& place, const QString& text, const FontSpec& font);
    void addGroup(const SheetGroup& group, QPoint corner);

    SheetPlan m_plan;
};

} // namespace torvane
