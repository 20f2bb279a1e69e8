// SPDX-License-Identifier: MIT
// What all lists of rows have in common: one current row, painting of what is visible, mouse and keys.
// The rows come from a RowSource; what a row looks like is the derived list's matter.
#pragma once

#include "../base/RowSource.h"
#include "Control.h"

#include <memory>

namespace torvane {

class RowList : public Control {
    Q_OBJECT

public:
    QAccessible::Role accessibleRole() const override { return QAccessible::List; }
    QString accessibleText() const override;

    int rowCount() const { return m_rows ? m_rows->count() : 0; }
    int rowHeight() const { return m_rowHeight; }
    /// The current row, counted from 0; -1 for none. Setting it fires no signal; a row that does not
    /// exist stands for none.
    int currentRow() const { return m_current; }
    void setCurrentRow(int row);

signals:
    /// The user has made a row the current one, by mouse or keys.
    void rowClicked(int row);
    void rowDoubleClicked(int row);

protected:
    RowList(QWidget& parent, const char* name, const DesignRect& rect, int rowHeight);

    void setRows(std::shared_ptr<const RowSource> rows);
    const RowSource* rows() const { return m_rows.get(); }

    /// The place of a row in the list's own coordinates.
    virtual QRect rowRect(int row) const = 0;
    /// Paints one row; the background is there already.
    virtual void paintRow(QPainter& painter, int row, const QRect& place) = 0;
    virtual QColor background() const = 0;
    /// Brings a row into sight.
    virtual void ensureVisible(int row) = 0;
    /// Moves what is seen by a number of rows, down if positive.
    virtual void scrollRows(int rows) = 0;
    /// How many whole rows are in sight at once; at least 1.
    virtual int rowsPerPage() const = 0;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void chooseRow(int row);
    void typeAhead(const QString& typed);
    int rowAfterKey(int key) const;

    std::shared_ptr<const RowSource> m_rows;
    int m_rowHeight;
    int m_current = -1;
    int m_wheelRest = 0;
    QString m_typed;
    qint64 m_typedAt = 0;
};

} // namespace torvane
