// SPDX-License-Identifier: MIT
// The view inside a list, its current row, mouse and keys.
#include "RowList.h"
#include "RowView.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace torvane {

namespace {
constexpr int rowsPerWheelStep = 3;
constexpr quint64 typeAheadMilliseconds = 1000;
} // namespace

RowList::RowList(QWidget& parent, const char* name, const DesignRect& rect, const RowLook& look,
                 ImageList* icons, int columns)
    : Control(parent, name, rect), m_rowHeight(look.height), m_back(look.back), m_model(columns, icons),
      m_delegate(look) {}

void RowList::showEvent(QShowEvent* event) {
    // Designs keep some lists outside of the window's edges, as mere stores.
    const QRect place(mapTo(window(), QPoint()), size());
    if (m_view == nullptr && window()->rect().intersects(place)) makeView();
    Control::showEvent(event);
}

// A list that is a mere store takes no focus either.
void RowList::makeView() {
    setFocusPolicy(Qt::StrongFocus);
    m_view = new RowView(*this, m_rowHeight);
    m_view->setItemDelegate(&m_delegate);
    m_view->setModel(&m_model);
    QPalette palette = m_view->viewport()->palette();
    palette.setColor(QPalette::Base, Colours::toQColor(m_back));
    m_view->viewport()->setPalette(palette);
    m_view->setGeometry(rect());
    setFocusProxy(m_view);
    setSpokenName(*this, accessibleName());
    setTabOrder(this, m_view);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RowList::takeSelection);
    dressView(*m_view);
    m_view->show();
    markCurrent();
    if (m_current >= 0) ensureVisible(m_current);
}

QRect RowList::rowRect(int row) const {
    if (m_view == nullptr) return {};
    const QPoint corner(0, m_view->rowViewportPosition(row));
    return {m_view->viewport()->mapTo(this, corner), QSize(m_view->viewport()->width(), m_rowHeight)};
}

void RowList::setItems(std::shared_ptr<const RowSource> rows) {
    m_current = -1;
    m_model.setRows(std::move(rows));
    if (m_view == nullptr) return;
    // At once, since whoever fills a list may go on to scroll it.
    m_view->doItemsLayout();
    m_view->scrollToTop();
}

void RowList::setCurrentRow(int row) {
    const int wanted = row >= 0 && row < rowCount() ? row : -1;
    if (wanted == m_current) return;
    m_current = wanted;
    markCurrent();
    if (m_current >= 0) ensureVisible(m_current);
}

void RowList::markCurrent() {
    if (m_view == nullptr) return;
    const QScopedValueRollback marking(m_isMarking, true);
    if (m_current < 0) {
        m_view->selectionModel()->clear();
    } else {
        m_view->selectionModel()->setCurrentIndex(
            m_model.index(m_current, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
}

// Assistive tools select rows through the view.
void RowList::takeSelection(const QItemSelection& selected) {
    if (m_isMarking) return;
    selected.isEmpty() ? markCurrent() : chooseRow(selected.first().top());
}

void RowList::chooseRow(int row) {
    if (row < 0 || row >= rowCount()) return;
    setCurrentRow(row);
    emit rowClicked(row);
}

void RowList::ensureVisible(int row) {
    if (m_view != nullptr) m_view->scrollTo(m_model.index(row, 0));
}

void RowList::scrollRows(int rows) {
    if (m_view == nullptr) return;
    QScrollBar& bar = *m_view->verticalScrollBar();
    bar.setValue(bar.value() + rows);
}

int RowList::rowsPerPage() const {
    return std::max(1, (m_view == nullptr ? height() : m_view->viewport()->height()) / m_rowHeight);
}

void RowList::resizeEvent(QResizeEvent*) {
    if (m_view != nullptr) m_view->setGeometry(rect());
}

int RowList::rowAt(const QMouseEvent& event) const {
    if (m_view == nullptr || event.button() != Qt::LeftButton) return -1;
    return m_view->rowAt(m_view->viewport()->mapFrom(this, event.position().toPoint()).y());
}

void RowList::mousePressEvent(QMouseEvent* event) { chooseRow(rowAt(*event)); }

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
    const int row = rowAt(*event);
    if (row >= 0 && row == m_current) emit rowDoubleClicked(row);
}

void RowList::wheelEvent(QWheelEvent* event) {
    m_wheelRest += event->angleDelta().y() * rowsPerWheelStep;
    const int steps = m_wheelRest / QWheelEvent::DefaultDeltasPerStep;
    m_wheelRest -= steps * QWheelEvent::DefaultDeltasPerStep;
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
        typeAhead(*event);
    } else {
        Control::keyPressEvent(event);
    }
}

// Key events have the time of the press, so that a busy moment of the program is no pause in typing.
void RowList::typeAhead(const QKeyEvent& event) {
    if (event.timestamp() - m_typedAt > typeAheadMilliseconds) m_typed.clear();
    m_typedAt = event.timestamp();
    m_typed += event.text();
    // The search begins at the current row, so that a longer beginning stays on it while it fits.
    for (int step = 0; step < rowCount(); ++step) {
        const int row = (std::max(0, m_current) + step) % rowCount();
        if (m_model.index(row, 0).data().toString().startsWith(m_typed, Qt::CaseInsensitive)) {
            chooseRow(row);
            return;
        }
    }
}

} // namespace torvane
