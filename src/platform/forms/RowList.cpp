// SPDX-License-Identifier: MIT
// Painting, mouse and keys of row lists.
#include "RowList.h"

#include <QDateTime>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

namespace torvane {

namespace {
constexpr int rowsPerWheelStep = 3;
constexpr int wheelStep = 120; // eighths of a degree, see QWheelEvent
constexpr qint64 typeAheadMilliseconds = 1000;
} // namespace

RowList::RowList(QWidget& parent, const char* name, const DesignRect& rect, int rowHeight)
    : Control(parent, name, rect), m_rowHeight(rowHeight) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

QString RowList::accessibleText() const { return m_current < 0 ? objectName() : m_rows->text(m_current); }

void RowList::setRows(std::shared_ptr<const RowSource> rows) {
    m_rows = std::move(rows);
    m_current = -1;
    update();
}

void RowList::setCurrentRow(int row) {
    const int wanted = row >= 0 && row < rowCount() ? row : -1;
    if (wanted == m_current) return;
    if (m_current >= 0) update(rowRect(m_current));
    m_current = wanted;
    if (m_current < 0) return;
    update(rowRect(m_current));
    ensureVisible(m_current);
}

void RowList::chooseRow(int row) {
    if (row < 0 || row >= rowCount()) return;
    setCurrentRow(row);
    emit rowClicked(row);
}

void RowList::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), background());
    if (rowCount() == 0) return;
    const int origin = rowRect(0).top();
    const int first = std::max(0, (event->rect().top() - origin) / m_rowHeight);
    const int last = std::min(rowCount() - 1, (event->rect().bottom() - origin) / m_rowHeight);
    for (int row = first; row <= last; ++row) paintRow(painter, row, rowRect(row));
}

void RowList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || rowCount() == 0) return;
    const int offset = event->position().toPoint().y() - rowRect(0).top();
    if (offset >= 0) chooseRow(offset / m_rowHeight);
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && m_current >= 0 &&
        rowRect(m_current).contains(event->position().toPoint())) {
        emit rowDoubleClicked(m_current);
    }
}

void RowList::wheelEvent(QWheelEvent* event) {
    m_wheelRest += event->angleDelta().y() * rowsPerWheelStep;
    const int steps = m_wheelRest / wheelStep;
    m_wheelRest -= steps * wheelStep;
    if (steps != 0) scrollRows(-steps);
    event->accept();
}

int RowList::rowAfterKey(int key) const {
    const int last = rowCount() - 1;
    switch (key) {
    case Qt::Key_Up: return std::max(0, m_current - 1);
    case Qt::Key_Down: return std::min(last, m_current + 1);
    case Qt::Key_PageUp: return std::max(0, m_current - rowsPerPage());
    case Qt::Key_PageDown: return std::min(last, m_current + rowsPerPage());
    case Qt::Key_Home: return 0;
    case Qt::Key_End: return last;
    default: return -1;
    }
}

void RowList::keyPressEvent(QKeyEvent* event) {
    const int row = rowAfterKey(event->key());
    if (row >= 0) {
        if (row != m_current) chooseRow(row);
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_current >= 0) {
        emit rowDoubleClicked(m_current);
    } else if (!event->text().isEmpty() && event->text().front().isPrint() &&
               !event->modifiers().testFlag(Qt::AltModifier)) {
        typeAhead(event->text());
    } else {
        Control::keyPressEvent(event);
    }
}

void RowList::typeAhead(const QString& typed) {
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (now - m_typedAt > typeAheadMilliseconds) m_typed.clear();
    m_typedAt = now;
    m_typed += typed;
    // The search begins at the current row, so that a longer beginning stays on it while it fits.
    for (int step = 0; step < rowCount(); ++step) {
        const int row = (std::max(0, m_current) + step) % rowCount();
        if (m_rows->text(row).startsWith(m_typed, Qt::CaseInsensitive)) {
            chooseRow(row);
            return;
        }
    }
}

} // namespace torvane
