// SPDX-License-Identifier: MIT
// The list with pictures that is inside a panel, is taller than it, and is moved up and down within it.
#pragma once

#include "ImageList.h"
#include "RowList.h"

namespace torvane {

class ListView : public RowList {
    Q_OBJECT

public:
    ListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons);

    QString kind() const override { return QStringLiteral("list view"); }
    using RowList::Clear;
    using RowList::setItems;

    /// The height that the program's arithmetic uses, in pixels. It limits nothing: all rows are painted,
    /// also those beyond this height.
    int Height() const { return m_height; }
    void setHeight(int height) { m_height = height; }
    /// The place of the first row's upper edge in the panel, in pixels, as it was last set: by the program,
    /// or by the user with wheel and keys. Any place may be set, and the rows are painted there.
    float Top() const { return m_top; }
    void setTop(int top);
    /// The same for a place that was computed for the current row. If that row would not be in sight there,
    /// the rows are painted where it is.
    void setTopForCurrent(float top);
    /// Makes a row the current one and leaves Top as it is; the row is painted in sight all the same. Fires
    /// no signal. Fails with subscript if there is no such row.
    void markRow(int row);
    /// Replaces all rows, makes one the current one (-1 for none), and has the first row's upper edge at a
    /// place in the panel, in pixels, or near it if no row would be in sight there. The current row need not
    /// be.
    void exchangeItems(std::shared_ptr<const RowSource> rows, int current, int top);
    /// Where the first row's upper edge is painted, in pixels: wheel, keys and buttons go on from there.
    int seenTop() const { return m_seenTop; }

protected:
    void dressView(RowView& view) override;
    void ensureVisible(int row) override;
    void scrollRows(int rows) override;
    int rowsPerPage() const override;

private:
    void paintAt(int top);
    bool isInSight(int row, int top) const;
    int topWith(int row) const;
    int withinEnds(int top) const;

    float m_top;
    int m_seenTop;
    bool m_keepsTop = false;
    int m_height;
};

} // namespace torvane
