// SPDX-License-Identifier: MIT
// Answers to the questions of a view.
#include "RowModel.h"
#include "ImageList.h"

namespace torvane {

RowModel::RowModel(int columns, ImageList* icons) : m_icons(icons), m_headers(columns) {}

void RowModel::setRows(std::shared_ptr<const RowSource> rows) {
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void RowModel::setHeader(int column, const QString& text) {
    m_headers[column] = text;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_rows ? 0 : m_rows->count();
}

int RowModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
    case Qt::DisplayRole: return m_rows->text(index.row(), index.column());
    case Qt::DecorationRole:
        if (m_icons == nullptr || index.column() != 0) return {};
        return m_icons->picture(m_rows->icon(index.row()));
    case KeyRole: return m_rows->key(index.row());
    default: return {};
    }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) return m_headers.value(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

} // namespace torvane
