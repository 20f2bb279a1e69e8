// SPDX-License-Identifier: MIT
// Shows a tree of menu entries at any place of the screen, over Qt's own menu. That is made on first
// use, so that it does not delay the start. Owned by the form of the entries.
#pragma once

#include "MenuEntry.h"

#include <QPoint>
#include <memory>
#include <vector>

class QAction;
class QMenu;

namespace torvane {

class PopupMenu : public QObject {
    Q_OBJECT

public:
    /// The menu of all entries of the root's form that follow the root on deeper levels.
    explicit PopupMenu(MenuEntry& root);
    ~PopupMenu() override;

    /// Shows the menu with its corner at that place, or as near as the screen allows, and returns at once.
    void popUp(QPoint screenPosition);
    bool isOpen() const;
    /// Qt's menu, for what shows it by itself, as desktops do with the menu of an icon in the tray. It lives
    /// as long as this object.
    QMenu& shown();

signals:
    /// The menu is about to be shown, by whomever: the time to bring the entries' states up to date.
    void aboutToOpen();

private:
    struct Item {
        MenuEntry* entry;
        QAction* action;
    };

    void make();
    void add(MenuEntry& entry, QMenu& menu, bool opensSubmenu);
    void follow();

    MenuEntry& m_root;
    std::unique_ptr<QMenu> m_menu;
    std::vector<Item> m_items; // all below the root, in the order of the tree
};

} // namespace torvane
