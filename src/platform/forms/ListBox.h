// SPDX-License-Identifier: MIT
// A list of texts with one current item. The program's only one is a store outside of its window's edges.
#pragma once

#include "Colours.h"
#include "RowList.h"

namespace torvane {

class ListBox : public RowList {
    Q_OBJECT

public:
    struct Look {
        FontSpec font = Fonts::M8;
        OleColour fore = Colours::windowText;
        OleColour back = Colours::windowBack;
    };
    ListBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("list box"); }
    const Look& look() const { return m_look; }
    using RowList::Clear;
    using RowList::setItems;

    int ListCount() const { return rowCount(); }
    int ListIndex() const { return currentRow(); }
    /// Makes an item the current one and fires Click; -1 means none and fires nothing. Fails with an invalid
    /// property value outside of the list.
    void setListIndex(int index);
    /// The text of the current item; empty for none.
    QString Text() const;

signals:
    void Click();
    void DblClick();

private:
    Look m_look;
};

} // namespace torvane
