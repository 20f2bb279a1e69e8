// SPDX-License-Identifier: MIT
// The headers of the list with columns, and its look.
#include "ColumnListView.h"
#include "RowView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace torvane {

namespace {
constexpr int smallRowHeight = 18;
constexpr int headerHeight = 20;
constexpr OleColour headerBack = 0x644D4E;
constexpr int columnStep = 40; // pixels a key or a step of the wheel scrolls sideways

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
    header.setTextElideMode(Qt::ElideRight);
    header.setSectionsClickable(false);
    header.setHighlightSections(false);
    for (int column = 0; column < static_cast<int>(m_widths.size()); ++column) {
        header.resizeSection(column, m_widths[static_cast<size_t>(column)]);
    }
    header.show();
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void ColumnListView::scrollColumns(int pixels) {
    if (view() == nullptr) return;
    QScrollBar& bar = *view()->horizontalScrollBar();
    bar.setValue(bar.value() + pixels);
}

void ColumnListView::wheelEvent(QWheelEvent* event) {
    const int sideways = event->angleDelta().x();
    if (sideways != 0) scrollColumns(-sideways * columnStep / QWheelEvent::DefaultDeltasPerStep);
    RowList::wheelEvent(event);
}

void ColumnListView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left: return scrollColumns(-columnStep);
    case Qt::Key_Right: return scrollColumns(columnStep);
    default: return RowList::keyPressEvent(event);
    }
}

} // namespace torvane
