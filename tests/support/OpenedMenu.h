// SPDX-License-Identifier: MIT
// Shared by the tests of the menu: the program, and a user who opens the menu and chooses an entry.
#pragma once

#include "OpenedProgram.h"

#include <QAction>
#include <QMenu>

namespace torvane {

class OpenedMenu : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    void start() { opened = std::make_unique<OpenedProgram>(); }
    void end() { opened.reset(); }
    void openWithGames(int count) const {
        opened->games(count);
        opened->open();
    }
    MainFrm& main() const { return opened->main(); }
    Menuing& menuing() const { return *opened->program->loaded<Menuing>(); }
    template <typename W>
    W* loaded() const {
        return opened->program->loaded<W>();
    }
    template <typename W>
    bool isShown() const {
        return loaded<W>() != nullptr && loaded<W>()->isVisible();
    }
    Foreground& foreground() const { return opened->program->foreground; }
    FakeMessages& messages() const { return opened->world.messages; }
    int starts() const { return static_cast<int>(opened->world.processes.starts.size()); }

    /// The entry as it is shown.
    QAction& action(const MenuEntry& entry) const {
        return *menuing().popup.shown().findChild<QAction*>(entry.objectName());
    }
    /// Opens the menu and closes it again: what it says is up to date then.
    void look() const {
        menuing().popup.popUp({});
        menuing().popup.shown().close();
    }
    /// Whether the menu, opened now, offers an entry.
    bool offers(const MenuEntry& entry) const {
        look();
        return action(entry).isVisible() && action(entry).isEnabled();
    }
    /// Opens the menu and chooses an entry.
    void choose(const MenuEntry& entry) const {
        look();
        chooseBlindly(entry);
    }
    /// Chooses an entry in a menu that a desktop shows, without asking the program.
    void chooseBlindly(const MenuEntry& entry) const {
        action(entry).trigger();
        QCoreApplication::processEvents();
    }
    void goCompact() const { opened->program->desk.go(Window::MainFrm, Window::Torvette); }
};

} // namespace torvane
