// SPDX-License-Identifier: MIT
// The rows of a list, through the view inside.
#include "AccessibleRowList.h"

namespace torvane {

QAccessibleInterface* AccessibleRowList::view() const {
    QWidget* inside = m_list.focusProxy();
    return inside == nullptr ? nullptr : QAccessible::queryAccessibleInterface(inside);
}

QAccessibleTableInterface* AccessibleRowList::table() const {
    QAccessibleInterface* inside = view();
    return inside == nullptr ? nullptr : inside->tableInterface();
}

QAccessible::Role AccessibleRowList::role() const {
    return columnCount() == 1 ? QAccessible::List : QAccessible::Table;
}

QAccessible::State AccessibleRowList::state() const {
    QAccessible::State state = AccessibleControl::state();
    state.focusable = true;
    state.focused = m_list.hasFocus();
    return state;
}

int AccessibleRowList::childCount() const {
    return table() == nullptr ? 0 : table()->rowCount() * table()->columnCount();
}

QAccessibleInterface* AccessibleRowList::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    return table()->cellAt(index / columnCount(), index % columnCount());
}

int AccessibleRowList::indexOfChild(const QAccessibleInterface* child) const {
    auto* cell = const_cast<QAccessibleInterface*>(child)->tableCellInterface();
    return cell == nullptr ? -1 : cell->rowIndex() * columnCount() + cell->columnIndex();
}

QAccessibleInterface* AccessibleRowList::childAt(int x, int y) const {
    return view() == nullptr ? nullptr : view()->childAt(x, y);
}

void* AccessibleRowList::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TableInterface ? table() : AccessibleControl::interface_cast(type);
}

} // namespace torvane
