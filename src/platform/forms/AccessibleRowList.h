// SPDX-License-Identifier: MIT
// A list as assistive tools see it: its rows are its parts. They are those of Qt's view inside, without the
// headers that the view counts among them even where they are hidden.
#pragma once

#include "AccessibleControl.h"
#include "RowList.h"

namespace torvane {

class AccessibleRowList : public AccessibleControl {
public:
    explicit AccessibleRowList(RowList& list) : AccessibleControl(list), m_list(list) {}

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    /// All cells, row by row; none as long as the list has not been in sight.
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

private:
    QAccessibleInterface* view() const;
    QAccessibleTableInterface* table() const;
    int columnCount() const { return m_list.model().columnCount(); }

    RowList& m_list;
};

} // namespace torvane
