// SPDX-License-Identifier: MIT
// The headers of the list with columns, and its look.
#include "ColumnListView.h"
#include "RowView.h"

#include <QHeaderView>

namespace torvane {

namespace {
constexpr int smallRowHeight = 18;
constexpr int headerHeight = 20;
constexpr OleColour headerBack = 0x644D4E;

RowLook rowLookOf(const ColumnListView::Look& look) {
    return {.height = smallRowHeight,
            .iconSize = 16,
            .fore = look.fore,
            .back = look.back,
            .line = 0xA08A83,
            .selectedFore = Colours::white,
            .selectedTop = 0x644D4E,
            .selectedBottom = 0x4A3933};
}
} // namespace

ColumnListView::ColumnListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons,
                               const Look& look)
    : RowList(parent, name, rect, rowLookOf(look), &icons, static_cast<int>(look.widths.size())),
      m_widths(look.widths) {
    setFontSpec(look.font);
}

void ColumnListView::dressView(RowView& view) {
    QHeaderView& header = *view.horizontalHeader();
    QPalette palette = header.palette();
    palette.setColor(QPalette::Button, Colours::toQColor(headerBack));
    palette.setColor(QPalette::ButtonText, Qt::white);
    header.setPalette(palette);
    header.setFont(Fonts::of(Fonts::V8b));
    header.setFixedHeight(headerHeight);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setSectionsClickable(false);
    header.setHighlightSections(false);
    for (int column = 0; column < static_cast<int>(m_widths.size()); ++column) {
        header.resizeSection(column, m_widths[static_cast<size_t>(column)]);
    }
    header.show();
}

} // namespace torvane
