// SPDX-License-Identifier: MIT
// The same start as from the window: the first emulator of the list, and the folder for screenshots.
#include "PlayCommand.h"
#include "EmulatorProcess.h"
#include "UnpackedGame.h"
#include "core/ScreenshotFolder.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"
#include "home/UserFolders.h"
#include "platform/base/Paths.h"
#include "platform/base/SystemCalls.h"
#include "tags/images/GameContent.h"
#include "tags/session/GameRow.h"

#include <filesystem>

namespace torvane {

namespace {
// An emulator may work in another folder.
QByteArray absolute(const QByteArray& path) {
    if (path.startsWith('/')) return path;
    return QByteArray::fromStdString(std::filesystem::current_path().native()) + '/' + path;
}

// What is an archive for the list is unpacked. Another ZIP file goes to the emulator as it is, unless the
// user knows what is in it.
bool isUnpacked(const QByteArray& path, const QByteArray& member, const NameCut& cut) {
    return GameRow::consoleOf(path, 0, cut) == "ZIP" || (!member.isEmpty() && GameContent::isArchive(path));
}

void report(const QByteArray& emulator, const char* reason, int status, Session& session) {
    session.reports().fault(emulator, reason);
    session.setStatus(status);
}

// As a shell tells what is there and can't be run from what is missing.
void reportUnstarted(const QByteArray& emulator, Session& session) {
    struct stat info {};
    if (stat(emulator.constData(), &info) == 0)
        return report(emulator, "it can't be run", EmulatorProcess::notExecutable, session);
    report(emulator, "it is no program", EmulatorProcess::notFound, session);
}
} // namespace

QByteArray PlayCommand::help() const {
    return "GAME [MEMBER]\n"
           "Runs a game in the emulator and ends with the emulator's exit status: 128 and\n"
           "the number of a signal that has killed it, 126 if it can't be run, 127 if it\n"
           "is missing. GAME is a file, or the name of one in the library. Of an archive\n"
           "its only game is played, or the MEMBER.\n";
}

QByteArray PlayCommand::faultOf(const Arguments& given) const {
    if (given.operands.isEmpty()) return "a game is missing";
    return given.operands.size() > 2 ? "one game can be played at a time" : QByteArray();
}

void PlayCommand::run(const Arguments& given, Session& session) {
    const QByteArray name = given.operands.front();
    session.attempt(name, [&] {
        Globals globals;
        globals.AppPath = session.home();
        globals.names = session.names();
        const QByteArray member = given.operands.size() > 1 ? given.operands.back() : QByteArray();
        play({name, absolute(GameFiles::found(name, session.library())), member}, globals, session);
    });
}

void PlayCommand::play(const Game& game, const Globals& globals, Session& session) {
    struct stat info {};
    if (stat(game.path.constData(), &info) != 0) failWithErrno();
    if (!S_ISREG(info.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    session.sweepBeside(game.path);
    if (isUnpacked(game.path, game.member, globals.names)) return playMember(game, globals, session);
    if (!game.member.isEmpty()) return session.reports().fault(game.name, "only an archive has members");
    start(Paths::spelled(game.path), globals, session);
}

void PlayCommand::playMember(const Game& game, const Globals& globals, Session& session) {
    const UnpackedGame unpacked(globals, game.path, game.member, [&] { return !session.isOver(); });
    if (!unpacked.fault().isEmpty()) return session.reports().fault(game.name, unpacked.fault());
    start(unpacked.path(), globals, session);
}

void PlayCommand::start(const QString& path, const Globals& globals, Session& session) {
    EmulatorCatalogue emulators(globals);
    emulators.read();
    const QByteArray emulator = Paths::real(emulators.EmulatorCommand);
    if (emulator.isEmpty())
        return report("emus.dat", "it names no emulator", EmulatorProcess::notFound, session);
    Settings settings(Paths::spelled(UserFolders::configuration()));
    EmulatorProcess process;
    ShellAndClose(process, [&] {
        return screenshotFolder(settings, globals).value();
    }).play(emulators.EmulatorCommand, path);
    if (!process.status()) return reportUnstarted(emulator, session);
    if (!process.hasStarted()) return report(emulator, "it can't be run", *process.status(), session);
    session.setStatus(*process.status());
}

} // namespace torvane
