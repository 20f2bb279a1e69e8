// SPDX-License-Identifier: MIT
// Entry point: sets up Qt and the real services, then starts the program.
#include "CommandLine.h"
#include "GivenFiles.h"
#include "HomeReport.h"
#include "NextStart.h"
#include "OneInstance.h"
#include "Program.h"
#include "art/ArtResources.h"
#include "core/DialogLanguage.h"
#include "home/ProgramHome.h"
#include "home/UserFolders.h"
#include "platform/base/NativeProcess.h"
#include "platform/base/Paths.h"
#include "platform/forms/DesktopDialogs.h"
#include "platform/forms/DesktopLook.h"
#include "platform/forms/DesktopPrinter.h"
#include "platform/forms/WindowingSystem.h"
#include "toolkit/DesignWords.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {
constexpr torvane::DesktopLook nightLook{.ground = torvane::slate,
                                         .button = torvane::indigo,
                                         .field = 0x382B26,
                                         .text = torvane::white,
                                         .selection = 0xA37774,
                                         .faint = 0xB09A93,
                                         .signs = ":/art/box-%1-32.png"};

// Delays in ms for work that can wait until the first window is on screen.
constexpr int windowIconDelay = 100;
constexpr int sweepDelay = 1000;

// The window icon in all sizes that window managers ask for.
void setWindowIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QStringLiteral(":/art/torvane-%1.png").arg(size), QSize(size, size));
    }
    QApplication::setWindowIcon(icon);
}

// What the windows get. Who has chosen "Open with" reads no terminal: the assistant shows the file that can't
// be opened, and says that it can't be copied.
QByteArrayList filesToOpen(const torvane::GivenFiles& given) {
    return isatty(STDERR_FILENO) != 0 ? given.paths : given.paths + given.faulty;
}

struct Start {
    const torvane::Home& home;
    torvane::OneInstance& instance;
    const QByteArrayList& files;
    const torvane::NextStart& next;
};

// Who has called while nobody served events any more, and has ended since, gets the program once more.
[[noreturn]] void endProcess(const Start& start) {
    const auto call = start.instance.close();
    std::fflush(nullptr);
    if (call) start.next.begin(*call);
    _exit(call ? EXIT_FAILURE : EXIT_SUCCESS);
}

// Shows the program and serves its user. Returns when the event loop ends, which endProcess prevents.
int work(torvane::Program& program, const torvane::OpenedHome& home, const Start& start) {
    program.start();
    program.openFiles(start.files);
    start.instance.listen([&](const torvane::StartCall& call) { program.calledAgain(call); });
    QTimer::singleShot(windowIconDelay, qApp, setWindowIcon);
    QTimer::singleShot(sweepDelay, qApp, [&] {
        program.funciones.sweepLeftovers();
        torvane::sweepHome(home.folder);
    });
    return QApplication::exec();
}

// The program itself, if this start is the first one; its exit status.
int run(char** argv, const Start& start) {
    torvane::WindowingSystem::preferX11();
    int argc = 1; // nothing of the command line is meant for Qt
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Torvane"));
    QApplication::setApplicationVersion(QStringLiteral(TORVANE_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    torvane::applyDesktopLook(nightLook);
    torvane::initArtResources();

    torvane::DesktopLanguage qtLanguage;
    torvane::DesktopMessageBoxes messages(&qtLanguage);
    torvane::DesktopFileDialogs dialogs(&qtLanguage);
    torvane::DesktopBrowser browser;
    torvane::NativeProcess processes;
    torvane::DesktopPrinter printer;
    torvane::Settings settings(torvane::Paths::spelled(torvane::UserFolders::configuration()));
    torvane::Runtime runtime{
        messages, dialogs, browser, processes, printer, settings, [&start] { endProcess(start); }};
    const torvane::OpenedHome home = torvane::openHome(start.home);
    torvane::Program program(runtime, home.folder);
    const torvane::DialogLanguage dialogLanguage(program.globals, program.language);
    qtLanguage.setSource(
        {[&] { return dialogLanguage.locale(); }, [&](const char* key) { return dialogLanguage.text(key); }});
    torvane::reportHome(program, home);
    return home.isClosed ? EXIT_FAILURE : work(program, home, start);
}
} // namespace

int main(int argc, char** argv) {
    const auto line = torvane::CommandLine::read({argv + std::min(argc, 1), argv + argc});
    if (line.wish != torvane::CommandLine::Wish::start) return line.answer();
    const torvane::GivenFiles given = torvane::GivenFiles::of(line.files);
    for (const QByteArray& fault : given.faults) std::fprintf(stderr, "torvane: %s\n", fault.constData());
    const QByteArrayList files = filesToOpen(given);
    const torvane::Home home = torvane::homeOfProgram(line.folder);
    const auto next = torvane::NextStart::ofThisProgram(line.folder);
    torvane::OneInstance instance(home.folder);
    const auto status = instance.handOver(torvane::StartCall::ofThisProcess(files));
    if (status) return given.faults.isEmpty() ? *status : EXIT_FAILURE;
    return run(argv, {home, instance, files, next});
}
