// SPDX-License-Identifier: MIT
// Tasks of one session.
#include "GameTasks.h"
#include "GameContent.h"

namespace torvane {

void GameTask::work() {
    try {
        GameContent::isArchive(m_game.name) ? readArchive() : readFile();
    } catch (const RuntimeFailure& failure) {
        m_failure = failure;
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
    games.visit([&](const GameFile& game) {
        if (session.isOver()) return false;
        crew.add(make(game));
        return true;
    });
    crew.finish();
    session.reports().end();
}

} // namespace torvane
