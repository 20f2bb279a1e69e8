// SPDX-License-Identifier: MIT
// The list with pictures that lies inside a panel, is taller than it, and is moved up and down within it.
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
    /// The place of the first row's upper edge in the panel, in pixels. Any place may be set.
    int Top() const { return m_top; }
    void setTop(int top);

protected:
    void dressView(RowView& view) override;
    void ensureVisible(int row) override;
    void scrollRows(int rows) override;
    int rowsPerPage() const override;

private:
    int m_top;
    int m_height;
};

} // namespace torvane
