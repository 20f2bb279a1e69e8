// SPDX-License-Identifier: MIT
// Reading games on all processors: a task for each file, with what goes wrong in it kept for its turn.
#pragma once

#include "Crew.h"
#include "GameArchive.h"
#include "GameImage.h"
#include "tags/session/Session.h"

namespace torvane {

class GameTask : public Crew::Task {
public:
    GameTask(GameFile game, Session& session)
        : m_game(std::move(game)), m_session(session), m_names(session.names()) {}

    const GameFile& game() const { return m_game; }
    Session& session() { return m_session; }
    /// Where names of files are cut.
    const NameCut& names() const { return m_names; }

    void work() final;
    void end() final;

protected:
    /// Reads a plain file, or an archive, on another thread. A failure is reported with the file's name.
    virtual void readFile() = 0;
    virtual void readArchive() = 0;
    /// Takes what was read, on the session's thread: also what came before a failure.
    virtual void take() = 0;

    /// Whether all of it could be read; to be asked by `take`.
    bool isWhole() const { return m_faults.empty() && !m_failure; }
    /// A fault of a member, reported after the results.
    void addFault(const QByteArray& member, const QByteArray& reason) {
        m_faults.emplace_back(m_game.name + ": " + member, reason);
    }

private:
    void readWhatIsPacked();

    GameFile m_game;
    Session& m_session;
    NameCut m_names;
    std::vector<std::pair<QByteArray, QByteArray>> m_faults;
    std::optional<RuntimeFailure> m_failure;
};

/// Makes a task for each game, and ends them in the order of the games, with the progress shown. `rows`: what
/// is printed meanwhile; null for nothing.
void runTasks(const GameFiles& games, Session& session,
              const std::function<std::unique_ptr<GameTask>(const GameFile&)>& make,
              const RowWriter* rows = nullptr);

} // namespace torvane
