// SPDX-License-Identifier: MIT
// The list with columns and headers: small pictures in the first column, one current row, as many rows as
// memory holds texts. The user can drag the columns wider, and scrolls sideways by wheel and arrow keys then.
#pragma once

#include "ImageList.h"
#include "RowList.h"

#include <vector>

namespace torvane {

class ColumnListView : public RowList {
    Q_OBJECT

public:
    struct Look {
        std::initializer_list<int>
            widths; ///< of the columns in pixels at first; the last one reaches to the edge
        FontSpec font = Fonts::V8;
        OleColour fore = Colours::black;
        OleColour back = 0xB09A93;
    };
    ColumnListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons,
                   const Look& look);

    QString kind() const override { return QStringLiteral("list view"); }
    using RowList::Clear;
    using RowList::setHeader;
    using RowList::setItems;

protected:
    void dressView(RowView& view) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Moves what is seen to the right, or to the left if negative, as far as the columns reach.
    void scrollColumns(int pixels);

    std::vector<int> m_widths;
};

} // namespace torvane
