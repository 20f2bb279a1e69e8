// SPDX-License-Identifier: MIT
// The list with pictures. It lies inside a panel, is taller than it, and is moved up and down within it.
#pragma once

#include "RowList.h"

#include <QPixmap>
#include <vector>

namespace torvane {

/// The pictures of a list, by number from 1. Loaded at the first use of each.
class ImageList : public Component {
    Q_OBJECT

public:
    ImageList(Form& form, const char* name, std::initializer_list<const char*> pictures);

    QString kind() const override { return QStringLiteral("image list"); }
    /// The picture of a number; null for numbers that have none.
    const QPixmap& picture(int number);

private:
    std::vector<QString> m_names;
    std::vector<QPixmap> m_pictures;
    qreal m_ratio;
};

class ListView : public RowList {
    Q_OBJECT

public:
    ListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons);

    QString kind() const override { return QStringLiteral("list view"); }

    /// Replaces all rows.
    void setItems(std::shared_ptr<const RowSource> rows) {
        setRows(std::move(rows));
        settle();
    }
    /// Removes all rows.
    void Clear() { setItems(nullptr); }

    /// The height that the program's arithmetic uses, in pixels. The list itself paints all its rows, also
    /// those beyond this height.
    int Height() const { return m_height; }
    void setHeight(int height);
    int Top() const { return y(); }
    void setTop(int top);

protected:
    QRect rowRect(int row) const override;
    void paintRow(QPainter& painter, int row, const QRect& place) override;
    QColor background() const override;
    void ensureVisible(int row) override;
    void scrollRows(int rows) override;
    int rowsPerPage() const override;
    /// Called when there are other rows.
    virtual void settle();

private:
    ImageList& m_icons;
    int m_height;
};

} // namespace torvane
