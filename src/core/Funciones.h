// SPDX-License-Identifier: MIT
// Small procedures that several windows share: copying and deleting games, the way to the browser, and
// the fatal-error message. Owned by the program.
#pragma once

#include "Hosts.h"
#include "LanguageTables.h"
#include "platform/base/Seams.h"
#include "platform/base/Settings.h"

namespace torvane {

/// The parts of the main window that these procedures reach for; handed in by the program.
class MainWindowReach {
public:
    virtual ~MainWindowReach() = default;
    /// Hands an address to the window's link control, which opens it in the browser.
    virtual void followLink(const QString& url) = 0;
    /// Points the list of games at the library folder again.
    virtual void pointGamesAtLibrary() = 0;
};

class Funciones {
public:
    struct Parts {
        const Globals& globals;
        const LanguageTables& language;
        const Hosts& hosts;
        MessageBoxes& messages;
        FileDialogs& dialogs;
        Settings& settings;
    };
    Funciones(const Parts& parts, MainWindowReach& mainWindow) : m_parts(parts), m_mainWindow(mainWindow) {}

    /// Asks for a target and copies a game out of the library; nothing happens if none is given. A file of
    /// the target's name is replaced. Fails, with the target as it was, if the copy can't be made whole.
    void CopyRom(const QString& sourcePath, const QString& fileName);
    /// Removes what a killed run left beside the program, among its data and the language files, in the
    /// library, beside the settings, or in the folder that it was copying a game to (see Leftovers). Never
    /// fails.
    void sweepLeftovers();
    /// Deletes a file for good and points the list of games at the library again.
    void DeleteRom(const QString& path);
    /// Opens an address in the browser.
    void OpenURL(const QString& url);
    /// Reports a fatal error and opens the page of frequent questions. Ends nothing.
    void ShowFatalError();

private:
    void rememberUnfinished(const QString& folder);

    Parts m_parts;
    MainWindowReach& m_mainWindow;
};

} // namespace torvane
