// SPDX-License-Identifier: MIT
// The library, and the loop over games.
#include "Session.h"
#include "Interruption.h"
#include "core/NameSetting.h"
#include "home/ProgramHome.h"
#include "home/UserFolders.h"
#include "platform/base/Folder.h"
#include "platform/base/Leftovers.h"
#include "platform/base/Paths.h"

namespace torvane {

// A command that reads makes nothing.
const QString& Session::home() {
    if (m_home.isEmpty()) m_home = Paths::spelled(homeOfProgram(m_folder).folder);
    return m_home;
}

const QByteArray& Session::library() {
    if (m_library.isEmpty()) m_library = Paths::real(home() + QStringLiteral("\\roms"));
    return m_library;
}

const NameCut& Session::names() {
    if (!m_names) {
        Settings settings(Paths::spelled(UserFolders::configuration()));
        m_names = chosenNameCut(settings);
    }
    return *m_names;
}

GameFiles Session::games(const QByteArrayList& operands) {
    GameFiles games(library(), m_reports);
    for (const QByteArray& operand : operands) games.add(operand);
    return games;
}

bool Session::isOver() const { return m_output.error() != 0 || m_interruption.hasCome(); }

void Session::attempt(const QByteArray& name, const std::function<void()>& work) {
    try {
        work();
    } catch (const RuntimeFailure& failure) {
        m_reports.fault(name, failure);
    }
}

// A link may lead to a game in another folder, and there the leftovers are.
void Session::sweepBeside(const QByteArray& path) {
    if (!m_sweeps) return;
    ignoring([&] {
        const QByteArray folder = placeOf(path).folder;
        if (folder == m_lastSwept) return;
        if (m_swept.insert(folder).second) Leftovers::sweep(Paths::spelled(folder));
        m_lastSwept = folder;
    });
}

void Session::visit(const GameFiles& games, const std::function<void(const GameFile&)>& take) {
    games.visit([&](const GameFile& game) {
        if (isOver()) return false;
        sweepBeside(game.path);
        take(game);
        return true;
    });
}

void Session::eachGame(const GameFiles& games, const std::function<void(const GameFile&)>& work,
                       const RowWriter* rows) {
    // Rows that appear on the same terminal show progress enough.
    const bool showsRows = rows != nullptr && rows->isStreaming() && m_output.isTerminal();
    m_reports.begin(showsRows ? 0 : games.count());
    visit(games, [&](const GameFile& game) {
        attempt(game.name, [&] { work(game); });
        m_reports.step();
    });
    m_reports.end();
}

} // namespace torvane
