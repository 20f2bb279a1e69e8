// SPDX-License-Identifier: MIT
// Owns everything: the modules, the windows, the desk between them. Made by main, or by a test that hands
// in its own answers in place of the outside world.
#pragma once

#include "FormSlot.h"
#include "TorvaneDesk.h"
#include "assistant/NewAssistant.h"
#include "catalogue/ID3.h"
#include "core/Funciones.h"
#include "core/SelLangStartUp.h"
#include "core/Splash.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"
#include "mainwindow/MainFrm.h"
#include "mainwindow/Menuing.h"
#include "toolkit/TorvMsg.h"
#include "zipviewer/ZIP_Viewer.h"

namespace torvane {

class Program : private MainWindowReach {
public:
    /// `applicationFolder` is spelled (see Paths), without trailing separator.
    Program(Runtime& runtime, const QString& applicationFolder);
    ~Program() override;
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Creates the first window; the rest follows from there.
    void start();

    Runtime& runtime;
    Globals globals;
    LanguageTables language;
    Hosts hosts;
    Funciones funciones;
    EmulatorCatalogue emulators;
    ShellAndClose shell;
    ID3 id3;
    TorvaneDesk desk;

    FormSlot<Menuing> menuing;
    FormSlot<SelLangStartUp> selLangStartUp;
    FormSlot<Splash> splash;
    FormSlot<MainFrm> mainFrm;
    FormSlot<TorvMsg> torvMsg;
    FormSlot<NewAssistant> newAssistant;
    FormSlot<ZIP_Viewer> zipViewer;

private:
    // MainWindowReach
    void followLink(const QString& url) override;
    void pointGamesAtLibrary() override;

    void deleteRomAndRefresh(const QString& path);
};

} // namespace torvane
