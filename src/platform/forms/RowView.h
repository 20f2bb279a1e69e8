// SPDX-License-Identifier: MIT
// Qt's table view as the inside of a RowList: it lays out and paints rows and shows them to assistive tools.
// Mouse and keys are left to the list around it. A table, because its layout costs next to nothing for a
// million rows, where a list view works for 70 ms.
#pragma once

#include <QTableView>
#include <optional>

namespace torvane {

class RowView : public QTableView {
    Q_OBJECT

public:
    RowView(QWidget& parent, int rowHeight);

    /// From now on the first row begins that many pixels above the view's upper edge, even if nothing is left
    /// to be seen then. There is no scroll bar any more.
    void setOffset(int pixels);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;

private:
    std::optional<int> m_offset;
};

} // namespace torvane
