// SPDX-License-Identifier: MIT
// The rehearsal, which looks at the games as the undo does.
#include "UndoCommand.h"
#include "platform/base/Paths.h"
#include "tags/edits/ChangeRows.h"
#include "tags/session/Session.h"
#include "tags/undo/UndoRun.h"

namespace torvane {

namespace {
struct Rehearsal {
    RowWriter& rows;
    UndoFaults faults = {};
    std::set<QByteArray> games = {}; // that will have their old ends
};

// An earlier change of a game begins where a later one will have been taken back.
void rehearse(const UndoLog::Place& place, const UndoEntry& entry, Rehearsal& rehearsal) {
    const QByteArray name = UndoFaults::nameOf(entry.path);
    if (rehearsal.games.count(name) > 0) return;
    try {
        const SafeFile::Change game(Paths::spelled(entry.path));
        if (UndoRun::oldEnd(game.file(), entry)) rehearsal.rows.add({Field::ofName(entry.path)});
        rehearsal.faults.clear(entry.path);
        rehearsal.games.insert(name);
    } catch (const RuntimeFailure& failure) {
        rehearsal.faults.add(place, entry.path, failure);
    }
}

void rehearseAll(const QByteArray& path, Session& session, RowWriter& rows) {
    const UndoLog log(path);
    Rehearsal rehearsal{rows};
    session.reports().begin(log.count());
    log.visitBackwards([&](const UndoLog::Place& place, const UndoEntry& entry) {
        if (session.isOver()) return false;
        rehearse(place, entry, rehearsal);
        session.reports().step();
        return true;
    });
    session.reports().end();
    rehearsal.faults.report(session.reports());
}
} // namespace

std::vector<OptionForm> UndoCommand::options() const { return ChangeRows::options(); }

QByteArray UndoCommand::help() const {
    return "[OPTION]...\n"
           "Takes back what the last command has written to games, and what others have\n"
           "that were at work at the same time. A game that has been changed since stays\n"
           "as it is. After an interruption the next undo goes on. Once all was taken\n"
           "back, a second undo does it all again.\n"
           "\n" +
           ChangeRows::help();
}

QByteArray UndoCommand::faultOf(const Arguments& given) const {
    return given.operands.isEmpty() ? QByteArray() : "it takes no file";
}

void UndoCommand::run(const Arguments& given, Session& session) {
    const QByteArray path = UndoFolder::last(session.backups());
    struct stat info {};
    if (stat(path.constData(), &info) != 0 && errno == ENOENT) {
        return session.reports().refusal("there is no run to undo");
    }
    session.attempt(path, [&] {
        if (ChangeRows::modeOf(given) != TagEdits::Mode::rehearsal) return UndoRun(session).run();
        const auto rows = RowFormat::writer(given, RowFormat::Plain::table, {{"file"}}, session.output());
        rehearseAll(path, session, *rows);
        rows->finish();
    });
}

} // namespace torvane
