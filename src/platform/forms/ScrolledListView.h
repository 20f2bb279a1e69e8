// SPDX-License-Identifier: MIT
// The list with pictures as it lies on a window by itself: it keeps its size, shows as many rows as fit, and
// has a scroll bar if there are more.
#pragma once

#include "ListView.h"

#include <QScrollBar>

namespace torvane {

class ScrolledListView : public ListView {
    Q_OBJECT

public:
    ScrolledListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons);

protected:
    QRect rowRect(int row) const override;
    void ensureVisible(int row) override;
    void scrollRows(int rows) override;
    int rowsPerPage() const override;
    void settle() override;

private:
    QScrollBar m_bar{Qt::Vertical, this}; // its value is the first row in sight
};

} // namespace torvane
