// SPDX-License-Identifier: MIT
// The games whose old ends an undo could not put back, and why.
#pragma once

#include "UndoLog.h"
#include "tags/session/Reports.h"

#include <map>
#include <set>

namespace torvane {

class UndoFaults {
public:
    /// A change of a game could not be taken back. `game`: its path.
    void add(const UndoLog::Place& change, const QByteArray& game, const RuntimeFailure& failure);
    /// A game has the end that it had before a change, so later changes of it need no undo any more: an undo
    /// that was interrupted has taken them back.
    void clear(const QByteArray& game);

    bool isEmpty() const { return m_games.empty(); }
    /// The changes that could not be taken back.
    std::set<UndoLog::Place> changes() const;
    /// Reports each game once.
    void report(Reports& reports) const;

    /// The path of a game after following links: it may have been changed under two names.
    static QByteArray nameOf(const QByteArray& path);

private:
    struct Fault {
        std::vector<UndoLog::Place> changes;
        QByteArray path;
        RuntimeFailure failure; // the last one
    };
    std::map<QByteArray, Fault> m_games;
};

} // namespace torvane
