// SPDX-License-Identifier: MIT
// One game after the other.
#include "ClearCommand.h"
#include "tags/edits/WritableGame.h"

namespace torvane {

std::vector<OptionForm> ClearCommand::options() const { return ChangeRows::options(); }

QByteArray ClearCommand::help() const {
    return "[OPTION]... FOLDER|FILE...\n"
           "Removes the tag of each game. A game without one stays as it is.\n"
           "\n" +
           ChangeRows::help();
}

QByteArray ClearCommand::faultOf(const Arguments& given) const {
    return given.operands.isEmpty() ? "a file is missing" : QByteArray();
}

void ClearCommand::run(const Arguments& given, Session& session) {
    TagEdits edits(ChangeRows::modeOf(given), session);
    ChangeRows rows(given, session.output());
    const auto clear = [&](const GameFile& game) {
        const QByteArray fault = faultOfWriting(game.name, session.names());
        if (!fault.isEmpty()) return session.reports().fault(game.name, fault);
        const TagEdits::State state = edits.stateOf(game);
        if (!state.tag && !edits.hasTag(game)) return;
        const TagEdit edit{game, std::nullopt};
        rows.add(edit, state);
        edits.add(edit, state);
    };
    session.eachGame(session.games(given.operands), clear, rows.writer());
    edits.finish();
    rows.finish();
}

} // namespace torvane
