// SPDX-License-Identifier: MIT
// A RowSource as Qt's views see it: texts by row and column, pictures in the first column, and the key of
// each row. Keeps no rows of its own.
#pragma once

#include "../base/RowSource.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <memory>

namespace torvane {

class ImageList;

class RowModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The role that gives the key of a row as text, in every column; see RowSource::key.
    static constexpr int KeyRole = Qt::UserRole;

    /// The images may be null: rows have no pictures then.
    RowModel(int columns, ImageList* icons);

    /// Replaces all rows; null means none.
    void setRows(std::shared_ptr<const RowSource> rows);
    void setHeader(int column, const QString& text);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::shared_ptr<const RowSource> m_rows;
    ImageList* m_icons;
    QStringList m_headers;
};

} // namespace torvane
