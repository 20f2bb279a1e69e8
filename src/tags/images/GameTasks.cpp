// SPDX-License-Identifier: MIT
// Tasks of one session.
#include "GameTasks.h"
#include "GameContent.h"

namespace torvane {

void GameTask::work() {
    try {
        GameContent::isArchive(m_game.name) ? readWhatIsPacked() : readFile();
    } catch (const RuntimeFailure& failure) {
        m_failure = failure;
    }
}

// The failure of a damaged archive is that of something which is no file, so what can't be opened as one is
// found first.
void GameTask::readWhatIsPacked() {
    const File file = File::ofReal(m_game.path);
    try {
        readArchive();
    } catch (const RuntimeFailure& failure) {
        if (failure.number() != RuntimeFailure::pathAccess) throw;
        m_faults.emplace_back(m_game.name, "the archive can't be opened");
    }
}

void GameTask::end() {
    take();
    for (const auto& [name, reason] : m_faults) m_session.reports().fault(name, reason);
    if (m_failure) m_session.reports().fault(m_game.name, *m_failure);
    m_session.reports().step();
}

void runTasks(const GameFiles& games, Session& session,
              const std::function<std::unique_ptr<GameTask>(const GameFile&)>& make, const RowWriter* rows) {
    const bool showsRows = rows != nullptr && rows->isStreaming() && session.output().isTerminal();
    session.reports().begin(showsRows ? 0 : games.count());
    Crew crew([&] { return session.isOver(); });
    session.visit(games, [&](const GameFile& game) { crew.add(make(game)); });
    crew.finish();
    session.reports().end();
}

} // namespace torvane
