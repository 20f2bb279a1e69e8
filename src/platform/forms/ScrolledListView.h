// SPDX-License-Identifier: MIT
// The list with pictures as it lies on a window by itself: it keeps its size, shows as many rows as fit, and
// has a scroll bar if there are more.
#pragma once

#include "ImageList.h"
#include "RowList.h"

namespace torvane {

class ScrolledListView : public RowList {
    Q_OBJECT

public:
    ScrolledListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons)
        : RowList(parent, name, rect, gameRowLook, &icons) {
        setFontSpec(Fonts::V8b);
    }

    QString kind() const override { return QStringLiteral("list view"); }
    using RowList::Clear;
    using RowList::setItems;
};

} // namespace torvane
