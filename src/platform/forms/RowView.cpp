// SPDX-License-Identifier: MIT
// Set-up of the table view.
#include "RowView.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace torvane {

RowView::RowView(QWidget& parent, int rowHeight) : QTableView(&parent) {
    // The view itself takes no mouse events either, so that they go on to the parent.
    viewport()->setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(rowHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
}

void RowView::setOffset(int pixels) {
    if (m_offset == pixels) return;
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int moved = verticalHeader()->offset() - pixels;
    m_offset = pixels;
    verticalHeader()->setOffset(pixels);
    viewport()->scroll(0, moved);
}

void RowView::keyPressEvent(QKeyEvent* event) { event->ignore(); }

void RowView::updateGeometries() {
    QTableView::updateGeometries();
    if (m_offset) verticalHeader()->setOffset(*m_offset);
}

} // namespace torvane
