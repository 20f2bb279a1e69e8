// SPDX-License-Identifier: MIT
// What the entries of the menu do. Each asks first whether the program takes orders: a desktop that shows the
// menu by itself does so at any time.
#include "Menuing.h"
#include "core/Desk.h"
#include "core/Foreground.h"
#include "core/GameShelf.h"

namespace torvane {

Menuing::Menuing(const Services& services) : MenuingDesign(services.runtime), m(services) {
    opens(changetomini, Window::Torvette);
    opens(editromlist, Window::EditDB);
    orders(searchgames, [this] { m.shelf.openSearchWeb(); });
    opens(editid3, Window::EditDB);
    opens(capturesgallery, Window::Compartir);
    orders(configmn, [this] { configmn_Click(); });
    opens(about, Window::Aboutfrm);
    orders(loadrom, [this] { m.shelf.launch(); });
    wire(view_tv, &MenuEntry::Click, [this] { m.shelf.restoreWindow(); });
    wire(end, &MenuEntry::Click, &Menuing::end_Click);
    connect(&popup, &PopupMenu::aboutToOpen, this, &Menuing::refresh);
}

void Menuing::orders(MenuEntry& entry, const std::function<void()>& action) {
    m_orders.append(&entry);
    wire(entry, &MenuEntry::Click, [this, action] {
        if (m.foreground.takesOrders()) action();
    });
}

void Menuing::opens(MenuEntry& entry, Window window) {
    orders(entry, [this, window] { m.desk.go(id, window); });
}

void Menuing::refresh() {
    const bool takesOrders = m.foreground.takesOrders();
    for (MenuEntry* entry : m_orders) entry->setEnabled(takesOrders);
    end.setEnabled(m.foreground.canAsk());
}

void Menuing::offerMainWindow(bool offered) {
    view_tv.setVisible(offered);
    barra1.setVisible(offered);
}

// The window that this entry would show was never made.
void Menuing::configmn_Click() {
    m.foreground.whileHidden(
        [this] { runtime().reporting([] { throw RuntimeFailure(RuntimeFailure::noObject); }); });
}

void Menuing::end_Click() {
    if (!m.foreground.canAsk()) return;
    m.desk.go(id, Window::TorvMsg,
              {QStringLiteral("¿Seguro que quieres salir?"), QStringLiteral("exit"), QString()});
}

} // namespace torvane
