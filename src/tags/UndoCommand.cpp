// SPDX-License-Identifier: MIT
// The old ends are put back where the new ones still are.
#include "UndoCommand.h"
#include "ChangeRows.h"
#include "TagEdits.h"
#include "UndoFile.h"

namespace torvane {

namespace {
// The latest change first, since a game may have been changed twice.
void undoAll(UndoLog& log, TagEdits& edits, Session& session, RowWriter* rows) {
    session.reports().begin(log.count());
    for (auto entries = log.next(); !entries.empty() && !session.isOver(); entries = log.next()) {
        for (const UndoEntry& entry : entries) {
            if (session.isOver()) break;
            if (rows != nullptr) rows->add({Field::ofName(entry.path)});
            edits.putBack(entry);
            session.reports().step();
        }
    }
    session.reports().end();
}
} // namespace

std::vector<OptionForm> UndoCommand::options() const { return ChangeRows::options(); }

QByteArray UndoCommand::help() const {
    return "[OPTION]...\n"
           "Takes back what the last command has written to games. A game that has been\n"
           "changed since stays as it is. A second undo does it all again.\n"
           "\n" +
           ChangeRows::help();
}

QByteArray UndoCommand::faultOf(const Arguments& given) const {
    return given.operands.isEmpty() ? QByteArray() : "it takes no file";
}

void UndoCommand::run(const Arguments& given, Session& session) {
    const QByteArray path = UndoFile::pathIn(session.backups());
    struct stat info {};
    if (stat(path.constData(), &info) != 0 && errno == ENOENT) {
        return session.reports().refusal("there is no run to undo");
    }
    std::unique_ptr<RowWriter> rows;
    if (given.has("--dry-run"))
        rows = RowFormat::writer(given, RowFormat::Plain::table, {{"file"}}, session.output());
    session.attempt(path, [&] {
        UndoLog log(path);
        TagEdits edits(ChangeRows::modeOf(given), session);
        undoAll(log, edits, session, rows.get());
        edits.finish();
    });
    if (rows) rows->finish();
}

} // namespace torvane
