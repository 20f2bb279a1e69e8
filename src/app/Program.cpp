// SPDX-License-Identifier: MIT
// Puts the modules and the windows together.
#include "Program.h"
#include "core/FailureTexts.h"
#include "core/NameSetting.h"
#include "core/ScreenshotFolder.h"
#include "platform/forms/RunningHandler.h"
#include "platform/forms/StartupNotice.h"

namespace torvane {

Program::Program(Runtime& programRuntime, const QString& homeFolder)
    : runtime(programRuntime), globals{homeFolder, {}, {}, {}, {}, chosenNameCut(runtime.settings)},
      shelf(windows, globals), compact(windows, runtime),
      funciones({globals, language, hosts, runtime.messages, runtime.dialogs, runtime.settings}, shelf),
      shell(runtime.processes, [this] { return screenshotFolder(runtime.settings, globals).value(); }),
      id3(globals, language, runtime.messages), desk(*this),
      foreground(*this), services{runtime, desk,      shelf,     compact, foreground, globals, language,
                                  hosts,   funciones, emulators, shell,   id3,        shown,   shelf},
      windows(services, [this](Window window) { desk.unloaded(window); }) {
    runtime.failureText = [this](const RuntimeFailure& failure) {
        return FailureTexts(language).of(failure);
    };
}

Program::~Program() { runtime.failureText = {}; }

void Program::start() {
    runtime.guarded([this] {
        windows.load(Window::Menuing);
        if (Form* window = windows.load(Window::SelLangStartUp)) window->Show();
    });
}

// A handler that runs while nothing is on screen is about to show a window: that one must not be loaded
// before its turn.
void Program::calledAgain(const StartCall& call) {
    if (!RunningHandler::isAny() || foreground.isOnScreen()) foreground.bringBack();
    if (QWidget* top = foreground.topmost()) {
        StartupNotice{call.startupId, call.activationToken}.answerWith(*top);
    }
    openFiles(call.files);
}

} // namespace torvane
