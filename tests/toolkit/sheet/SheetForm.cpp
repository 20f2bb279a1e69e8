// SPDX-License-Identifier: MIT
// Layout of the sheet.
#include "SheetForm.h"
#include "CellButton.h"
#include "platform/forms/Label.h"

namespace torvane {

namespace {
constexpr int margin = 16;
constexpr int labelWidth = 124;
constexpr int headHeight = 40; // title and names of the columns
constexpr int lineHeight = 15;
constexpr int sheetWidth = 2 * (labelWidth + 456) + 3 * margin;
} // namespace

SheetPlan SheetPlan::of(const std::vector<SheetGroup>& groups) {
    SheetPlan plan;
    QPoint corner(margin, margin);
    int lineBottom = corner.y();
    for (const SheetGroup& group : groups) {
        const QSize block = group.size() + QSize(labelWidth, headHeight);
        if (corner.x() + block.width() + margin > sheetWidth) corner = {margin, lineBottom + margin};
        plan.cells.push_back(corner + QPoint(labelWidth, headHeight));
        lineBottom = std::max(lineBottom, corner.y() + block.height());
        corner.rx() += block.width() + margin;
    }
    plan.size = QSize(sheetWidth, lineBottom + margin);
    return plan;
}

SheetForm::SheetForm(const SheetPlan& plan)
    : Form(FakeDesktop::runtime,
           {.name = "ButtonSheet", .title = "Buttons", .clientSize = plan.size, .backColour = back}),
      m_plan(plan) {
    // The focus rests here at first, and not on the first button.
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
    for (std::size_t i = 0; i < plan.cells.size(); ++i) addGroup(buttonSheet()[i], plan.cells[i]);
}

void SheetForm::addLabel(const QRect& place, const QString& text, const FontSpec& font) {
    const DesignRect rect{double(place.x()), double(place.y()), double(place.width()),
                          double(place.height())};
    auto* label = new Label(*this, "label", rect, {.font = font, .fore = Colours::white});
    label->setCaption(text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SheetForm::addGroup(const SheetGroup& group, QPoint corner) {
    addLabel({corner - QPoint(labelWidth, headHeight), QSize(456, lineHeight)}, group.title, Fonts::V9b);
    for (int column = 0; column < stateCount; ++column) {
        const QPoint cell = corner + group.cellAt(0, column).topLeft();
        addLabel({cell + QPoint(4, -lineHeight), QSize(group.cell.width() - 4, lineHeight)},
                 nameOf(static_cast<ButtonState>(column)), Fonts::V8);
    }
    for (int row = 0; row < static_cast<int>(group.rows.size()); ++row) {
        const SheetRow& line = group.rows[static_cast<std::size_t>(row)];
        const int middle = corner.y() + group.cellAt(row, 0).center().y();
        addLabel({corner.x() - labelWidth, middle - lineHeight / 2, labelWidth - 4, lineHeight}, line.label,
                 Fonts::V8);
        for (int column = 0; column < stateCount; ++column) {
            const QPoint place = group.cellAt(row, column).topLeft() + group.buttonIn(row).topLeft();
            auto* button = new CellButton(*this, corner + place, line.setup);
            button->hold(static_cast<ButtonState>(column));
        }
    }
}

} // namespace torvane
