// SPDX-License-Identifier: MIT
// How a window asks for another one. No window knows the windows that it opens or that opened it: the
// program's desk does, in one table. This is what the windows see of it.
#pragma once

#include <QString>

namespace torvane {

class Form;

/// All windows that can be asked for, by their names.
enum class Window {
    SelLangStartUp,
    Splash,
    MainFrm,
    Torvette,
    Menuing,
    TorvMsg,
    NewAssistant,
    EditDB,
    Compartir,
    Aboutfrm,
    SearchROM,
    URL,
    ConfigNew,
    AdvSearch,
    ZIP_Viewer,
};

class Desk {
public:
    virtual ~Desk() = default;

    /// Whether the program has such a window; a button that opens none is disabled.
    virtual bool exists(Window window) const = 0;
    /// One window opens another, in the way that the desk's table gives for the two.
    virtual void go(Window from, Window to) = 0;
    /// The language is chosen: fills the program's texts and opens the first window.
    virtual void startApplication() = 0;
    /// The user has ended the intro.
    virtual void introEnded() = 0;
    /// Opens the window of an archive: full path and bare name. Returns when it is listed or closed again.
    virtual void openArchive(const QString& path, const QString& name) = 0;
    /// A window that stood in the main window's place has closed: it comes back, unless the compact window
    /// stands in its place.
    virtual void bringBackMainWindow() = 0;
    /// Opens the assistant with a file chosen, or lets it copy a folder: the spelled path of what the user
    /// has dropped.
    virtual void addGames(const QString& path) = 0;
    /// There may be other games in the library: the main window, if it is there, lists anew.
    virtual void gamesAdded() = 0;
    /// The main window loads anew and shows itself.
    virtual void reopenMainWindow() = 0;
    /// Asks a question in the program's own window; returns at once. Action words: "exit", "delete" with a
    /// path as data, "msg".
    virtual void makeMSG(const QString& message, const QString& action, const QString& data) = 0;
    /// The main window if the user can see it, else null.
    virtual Form* visibleMainWindow() const = 0;
    /// Keeps the main window from taking input, or lets it take input again if it is visible.
    virtual void disableMainWindow() = 0;
    virtual void enableVisibleMainWindow() = 0;
    /// Ends the process at once, with no clean-up.
    virtual void endProgram() = 0;
};

} // namespace torvane
