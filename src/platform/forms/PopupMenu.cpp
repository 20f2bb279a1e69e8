// SPDX-License-Identifier: MIT
// Qt's menu from the entries of a design.
#include "PopupMenu.h"
#include "Form.h"

#include <QMenu>
#include <algorithm>
#include <utility>

namespace torvane {

namespace {
// Qt takes a single "&" for the mark of an access key.
QString literal(QString caption) { return caption.replace(QLatin1Char('&'), QStringLiteral("&&")); }

// The root and its tree, in the order of the design.
QList<MenuEntry*> treeOf(const MenuEntry& root) {
    QList<MenuEntry*> tree = root.parent()->findChildren<MenuEntry*>(QString(), Qt::FindDirectChildrenOnly);
    tree.erase(tree.begin(), std::find(tree.begin(), tree.end(), &root));
    const auto end = std::find_if(tree.begin() + 1, tree.end(),
                                  [&](const MenuEntry* entry) { return entry->level() <= root.level(); });
    tree.erase(end, tree.end());
    return tree;
}

// Of several separators in a row one is seen, and none at an end of the menu. Qt paints menus that way by
// itself, but a desktop that shows the menu of an icon would draw all of them.
void hideSpareSeparators(const QMenu& menu) {
    QAction* open = nullptr; // a separator that no entry follows yet
    bool isAfterEntry = false;
    for (QAction* action : menu.actions()) {
        if (!action->isVisible()) continue;
        if (!action->isSeparator()) {
            isAfterEntry = true;
            open = nullptr;
        } else if (std::exchange(isAfterEntry, false)) {
            open = action;
        } else {
            action->setVisible(false);
        }
    }
    if (open != nullptr) open->setVisible(false);
}
} // namespace

PopupMenu::PopupMenu(MenuEntry& root) : m_root(root) {}

PopupMenu::~PopupMenu() = default;

void PopupMenu::popUp(QPoint screenPosition) { shown().popup(screenPosition); }

bool PopupMenu::isOpen() const { return m_menu != nullptr && m_menu->isVisible(); }

QMenu& PopupMenu::shown() {
    if (!m_menu) make();
    return *m_menu;
}

void PopupMenu::make() {
    m_menu = std::make_unique<QMenu>();
    m_menu->setObjectName(m_root.objectName());
    connect(m_menu.get(), &QMenu::aboutToShow, this, &PopupMenu::aboutToOpen);
    QList<QMenu*> menus{m_menu.get()}; // the menu of each level below the root's
    const QList<MenuEntry*> tree = treeOf(m_root);
    for (qsizetype i = 1; i < tree.size(); ++i) {
        MenuEntry& entry = *tree[i];
        const bool opensSubmenu = i + 1 < tree.size() && tree[i + 1]->level() > entry.level();
        menus.resize(entry.level() - m_root.level());
        add(entry, *menus.last(), opensSubmenu);
        if (opensSubmenu) menus.append(m_items.back().action->menu());
    }
    follow();
}

void PopupMenu::add(MenuEntry& entry, QMenu& menu, bool opensSubmenu) {
    const QString text = literal(entry.Caption());
    QAction* action = opensSubmenu ? menu.addMenu(text)->menuAction() : menu.addAction(text);
    action->setObjectName(entry.objectName());
    action->setSeparator(entry.isSeparator());
    m_items.push_back({&entry, action});
    connect(&entry, &MenuEntry::stateChanged, this, &PopupMenu::follow);
    // Later, when the menu has left the screen: what an entry does may take its time, and a desktop or an
    // assistive tool that has chosen it would wait with it.
    connect(action, &QAction::triggered, &entry, &MenuEntry::choose, Qt::QueuedConnection);
}

void PopupMenu::follow() {
    for (const Item& item : m_items) {
        item.action->setEnabled(item.entry->Enabled());
        item.action->setVisible(item.entry->Visible());
    }
    hideSpareSeparators(*m_menu);
    for (const QMenu* submenu : m_menu->findChildren<QMenu*>()) hideSpareSeparators(*submenu);
}

} // namespace torvane
