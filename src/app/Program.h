// SPDX-License-Identifier: MIT
// Owns everything: the modules, the windows, the desk between them. Made by main, or by a test that hands
// in its own answers instead of the outside world.
#pragma once

#include "CompactWindowReach.h"
#include "ForegroundWindows.h"
#include "MainWindowShelf.h"
#include "OpenFiles.h"
#include "StartCall.h"
#include "TorvaneDesk.h"
#include "Windows.h"
#include "catalogue/ID3.h"
#include "core/Funciones.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"
#include "gallery/ShownPicture.h"

namespace torvane {

class Program {
public:
    /// `homeFolder` is spelled (see Paths), without trailing separator.
    Program(Runtime& runtime, const QString& homeFolder);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Creates the first window; the rest follows from there.
    void start();
    /// Opens files and folders in this order (see OpenFiles); absolute real paths. They may be given at any
    /// time, and wait until the user can see what becomes of them.
    void openFiles(const QByteArrayList& paths) { files.open(paths); }
    /// The user has started the program once more: its windows come to the front, and it opens the files.
    void calledAgain(const StartCall& call);

    /// The window of a class if it is there; null if not.
    template <typename T>
    T* loaded() const {
        return windows.slot<T>().ifLoaded();
    }
    /// The window of a class, created if need be; null if it unloaded itself at once.
    template <typename T>
    T* load() {
        return windows.slot<T>().load();
    }

    Runtime& runtime;
    Globals globals;
    LanguageTables language{globals};
    Hosts hosts{globals};
    MainWindowShelf shelf;
    CompactWindowReach compact;
    Funciones funciones;
    EmulatorCatalogue emulators{globals};
    ShellAndClose shell;
    ID3 id3;
    ShownPicture shown;
    TorvaneDesk desk;
    ForegroundWindows foreground;
    const Services services;
    Windows windows;
    OpenFiles files{*this};
};

} // namespace torvane
