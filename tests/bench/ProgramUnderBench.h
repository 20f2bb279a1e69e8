// SPDX-License-Identifier: MIT
// The program as its main() makes it, on a folder and settings that the benchmark chooses.
#pragma once

#include "Mouse.h"
#include "Repaints.h"
#include "app/Program.h"
#include "art/ArtResources.h"
#include "platform/base/NativeProcess.h"
#include "platform/base/Paths.h"
#include "platform/forms/DesktopDialogs.h"
#include "platform/forms/DesktopPrinter.h"

#include <cstdio>
#include <unistd.h>

namespace torvane::bench {

struct ProgramUnderBench {
    /// Both folders are real paths.
    ProgramUnderBench(const char* programFolder, const char* configurationFolder)
        : settings(Paths::spelled(configurationFolder)), program(runtime, Paths::spelled(programFolder)) {
        initArtResources();
    }

    /// The main window after a start without intro; if there is none, nothing can be measured.
    MainFrm& startedMainWindow() {
        program.start();
        MainFrm* window = program.loaded<MainFrm>();
        if (window == nullptr) {
            std::fputs("The program did not start with its main window.\n", stderr);
            _exit(3);
        }
        return *window;
    }

    /// The database window, opened by the button of the main window, when its list has been painted. The
    /// host's folder must have a file.
    EditDB& openedDatabase() {
        click(program.loaded<MainFrm>()->chameleonButton3);
        EditDB& window = *program.loaded<EditDB>();
        Repaints repaints(window.ListView1);
        window.ListView1.update();
        repaints.awaitOne();
        return window;
    }

    DesktopMessageBoxes messages;
    DesktopFileDialogs dialogs;
    DesktopBrowser browser;
    NativeProcess processes;
    DesktopPrinter printer;
    Settings settings;
    Runtime runtime{messages, dialogs, browser, processes, printer, settings, [] { _exit(3); }};
    Program program;
};

} // namespace torvane::bench
