// SPDX-License-Identifier: MIT
// The window that is never shown: it holds the program's menu. It is created at the start and stays to the
// end.
#pragma once

#include "Menuing.design.h"
#include "core/Services.h"
#include "core/Window.h"
#include "platform/forms/PopupMenu.h"

namespace torvane {

class Menuing : public MenuingDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::Menuing;

    explicit Menuing(const Services& services);

    /// Does nothing; kept for callers that want to be sure that the window is there.
    void LoadMenu() {}

    /// Whether the menu has the entry that brings back the minimised main window.
    void offerMainWindow(bool offered);

    PopupMenu popup{menu};

private:
    void orders(MenuEntry& entry, const std::function<void()>& action);
    void opens(MenuEntry& entry, Window window);
    void refresh();
    void configmn_Click();
    void end_Click();

    const Services& m;
    QList<MenuEntry*> m_orders; // the entries that work on the main or the compact window
};

} // namespace torvane
