// SPDX-License-Identifier: MIT
// The program as its main() makes it, on a folder and settings that the benchmark chooses.
#pragma once

#include "Mouse.h"
#include "Repaints.h"
#include "Samples.h"
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

    /// A window with a list, opened by its button of the main window, when the list has been painted.
    template <typename W>
    W& opened(chameleonButton MainFrm::*button) {
        click(program.loaded<MainFrm>()->*button);
        W& window = *program.loaded<W>();
        Repaints repaints(window.ListView1);
        window.ListView1.update();
        repaints.awaitOne();
        return window;
    }
    /// The database window; the host's folder must have a file.
    EditDB& openedDatabase() { return opened<EditDB>(&MainFrm::chameleonButton3); }
    /// The nanoseconds until a window with so many rows is painted. It is closed again.
    template <typename W>
    std::int64_t timeToOpen(chameleonButton MainFrm::*button, int rows) {
        W* window = nullptr;
        const std::int64_t time = timeOf([&] { window = &opened<W>(button); });
        mustHold(window->ListView1.rowCount() == rows);
        window->Unload();
        QApplication::processEvents();
        return time;
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
