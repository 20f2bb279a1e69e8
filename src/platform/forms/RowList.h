// SPDX-License-Identifier: MIT
// What all lists of rows have in common: the rows and their model, one current row, mouse and keys. Qt's
// table view inside shows the rows; it is made when the list first comes into sight, since some lists never
// do.
#pragma once

#include "Control.h"
#include "RowDelegate.h"
#include "RowModel.h"

class QItemSelection;

namespace torvane {

class RowView;

class RowList : public Control {
    Q_OBJECT

public:
    int rowCount() const { return m_model.rowCount(); }
    int rowHeight() const { return m_rowHeight; }
    /// The current row, counted from 0; -1 for none. Setting it fires no signal; a row that does not
    /// exist means none.
    int currentRow() const { return m_current; }
    void setCurrentRow(int row);
    /// Texts, pictures and keys of the rows.
    const RowModel& model() const { return m_model; }
    /// The place of a row in the list's own coordinates; null as long as the list has not been in sight.
    QRect rowRect(int row) const;

signals:
    /// The user has made a row the current one, by mouse, keys or an assistive tool.
    void rowClicked(int row);
    void rowDoubleClicked(int row);

protected:
    /// The icons may be null: rows have no pictures then.
    RowList(QWidget& parent, const char* name, const DesignRect& rect, const RowLook& look, ImageList* icons,
            int columns = 1);

    /// Replaces all rows; none is the current one then.
    void setItems(std::shared_ptr<const RowSource> rows);
    /// Removes all rows.
    void Clear() { setItems(nullptr); }

    /// The text above a column, counted from 0.
    void setHeader(int column, const QString& text) { m_model.setHeader(column, text); }
    /// The view inside; null as long as the list has not been in sight.
    RowView* view() const { return m_view; }
    /// Called once with the new view.
    virtual void dressView(RowView& view) { Q_UNUSED(view); }
    /// Brings a row into sight.
    virtual void ensureVisible(int row);
    /// Moves what is seen by a number of rows, down if positive.
    virtual void scrollRows(int rows);
    /// How many whole rows are in sight at once; at least 1.
    virtual int rowsPerPage() const;

    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeView();
    void markCurrent();
    void takeSelection(const QItemSelection& selected);
    void chooseRow(int row);
    int rowAt(const QMouseEvent& event) const;
    int rowAfterKey(int key) const;
    void typeAhead(const QKeyEvent& event);

    int m_rowHeight;
    OleColour m_back;
    RowModel m_model;
    RowDelegate m_delegate;
    RowView* m_view = nullptr;
    int m_current = -1;
    bool m_isMarking = false;
    int m_wheelRest = 0;
    QString m_typed;
    quint64 m_typedAt = 0; // by the clock of key events, in milliseconds
};

} // namespace torvane
