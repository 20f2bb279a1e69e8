// SPDX-License-Identifier: MIT
// The rows in sight, and the scroll bar.
#include "ScrolledListView.h"

#include <algorithm>

namespace torvane {

ScrolledListView::ScrolledListView(QWidget& parent, const char* name, const DesignRect& rect,
                                   ImageList& icons)
    : ListView(parent, name, rect, icons) {
    const int barWidth = m_bar.sizeHint().width();
    m_bar.setGeometry(width() - barWidth, 0, barWidth, height());
    m_bar.setFocusPolicy(Qt::NoFocus);
    m_bar.hide();
    connect(&m_bar, &QScrollBar::valueChanged, this, [this] { update(); });
}

void ScrolledListView::settle() {
    m_bar.setRange(0, std::max(0, rowCount() - rowsPerPage()));
    m_bar.setPageStep(rowsPerPage());
    m_bar.setValue(0);
    m_bar.setVisible(m_bar.maximum() > 0);
}

QRect ScrolledListView::rowRect(int row) const {
    const int barWidth = m_bar.maximum() > 0 ? m_bar.width() : 0;
    return {0, (row - m_bar.value()) * rowHeight(), width() - barWidth, rowHeight()};
}

void ScrolledListView::ensureVisible(int row) {
    if (row < m_bar.value()) scrollRows(row - m_bar.value());
    if (row >= m_bar.value() + rowsPerPage()) scrollRows(row - m_bar.value() - rowsPerPage() + 1);
}

void ScrolledListView::scrollRows(int rows) { m_bar.setValue(m_bar.value() + rows); }

int ScrolledListView::rowsPerPage() const { return std::max(1, height() / rowHeight()); }

} // namespace torvane
