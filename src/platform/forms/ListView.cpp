// SPDX-License-Identifier: MIT
// The moves of the list within its panel. The widget covers the panel from the first row down and shows the
// rows further up or down: a widget as tall as a million rows would exceed Qt's limit.
#include "ListView.h"
#include "RowView.h"

#include <algorithm>

namespace torvane {

ListView::ListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons)
    : RowList(parent, name, rect, gameRowLook, &icons), m_top(rect.rounded().top()),
      m_height(rect.rounded().height()) {
    setFontSpec(Fonts::V8b);
}

void ListView::dressView(RowView&) { setTop(m_top); }

void ListView::setTop(int top) {
    m_top = top;
    if (view() == nullptr) return;
    const int upperEdge = std::max(0, top);
    setGeometry(x(), upperEdge, width(), std::max(0, parentWidget()->height() - upperEdge));
    view()->setOffset(upperEdge - top);
}

void ListView::ensureVisible(int row) {
    const int frame = parentWidget()->height();
    const int rowTop = row * rowHeight();
    const int rowBottom = rowTop + rowHeight();
    if (m_top + rowTop < 0) {
        setTop(row == 0 ? qRound(designRect().top) : -rowTop);
    } else if (m_top + rowBottom > frame) {
        setTop(frame - rowBottom);
    }
}

void ListView::scrollRows(int rows) {
    const int highest = qRound(designRect().top);
    const int lowest = std::min(highest, parentWidget()->height() - rowCount() * rowHeight());
    setTop(std::clamp(m_top - rows * rowHeight(), lowest, highest));
}

int ListView::rowsPerPage() const { return std::max(1, parentWidget()->height() / rowHeight()); }

} // namespace torvane
