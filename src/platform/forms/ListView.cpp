// SPDX-License-Identifier: MIT
// The moves of the list within its panel. The widget covers the panel from the first row down and shows the
// rows further up or down: a widget as tall as a million rows would exceed Qt's limit.
#include "ListView.h"
#include "../base/RuntimeFailure.h"
#include "RowView.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace torvane {

ListView::ListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons)
    : RowList(parent, name, rect, gameRowLook, &icons), m_top(static_cast<float>(rect.rounded().top())),
      m_seenTop(rect.rounded().top()), m_height(rect.rounded().height()) {
    setFontSpec(Fonts::V8b);
}

void ListView::dressView(RowView&) { paintAt(m_seenTop); }

void ListView::setTop(int top) {
    m_top = static_cast<float>(top);
    paintAt(top);
}

void ListView::setTopForCurrent(float top) {
    m_top = top;
    const int row = currentRow();
    const bool isShown = row < 0 || isInSight(row, qRound(top));
    paintAt(isShown ? qRound(top) : withinEnds(topWith(row)));
}

void ListView::markRow(int row) {
    if (row < 0 || row >= rowCount()) throw RuntimeFailure(RuntimeFailure::subscript);
    const QScopedValueRollback keeping(m_keepsTop, true);
    setCurrentRow(row);
    setTopForCurrent(m_top);
}

void ListView::exchangeItems(std::shared_ptr<const RowSource> rows, int current, int top) {
    const QScopedValueRollback keeping(m_keepsTop, true);
    setItems(std::move(rows));
    setCurrentRow(current);
    const bool isAnySeen = top + rowCount() * rowHeight() >= rowHeight() && top < parentWidget()->height();
    if (rowCount() > 0 && !isAnySeen) top = withinEnds(top);
    top == m_seenTop ? paintAt(top) : setTop(top);
}

void ListView::paintAt(int top) {
    m_seenTop = top;
    if (view() == nullptr) return;
    const int upperEdge = std::max(0, top);
    setGeometry(x(), upperEdge, width(), std::max(0, parentWidget()->height() - upperEdge));
    view()->setOffset(upperEdge - top);
}

bool ListView::isInSight(int row, int top) const {
    const int rowTop = top + row * rowHeight();
    return rowTop >= 0 && rowTop + rowHeight() <= parentWidget()->height();
}

// The place at which a row is the uppermost one in the panel.
int ListView::topWith(int row) const { return row == 0 ? qRound(designRect().top) : -row * rowHeight(); }

void ListView::ensureVisible(int row) {
    if (m_keepsTop || isInSight(row, m_seenTop)) return;
    const int rowTop = row * rowHeight();
    setTop(m_seenTop + rowTop < 0 ? topWith(row) : parentWidget()->height() - rowTop - rowHeight());
}

// The nearest place at which the panel is full of rows, or shows all of them.
int ListView::withinEnds(int top) const {
    const int highest = qRound(designRect().top);
    const int lowest = std::min(highest, parentWidget()->height() - rowCount() * rowHeight());
    return std::clamp(top, lowest, highest);
}

void ListView::scrollRows(int rows) { setTop(withinEnds(m_seenTop - rows * rowHeight())); }

int ListView::rowsPerPage() const { return std::max(1, parentWidget()->height() / rowHeight()); }

} // namespace torvane
