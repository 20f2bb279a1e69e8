// SPDX-License-Identifier: MIT
// Matching games with entries, and writing by the rules of set.
#include "ImportCommand.h"
#include "EntryLine.h"
#include "TitledEntries.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/File.h"
#include "platform/base/NativeText.h"
#include "tags/edits/GivenTag.h"
#include "tags/edits/WritableGame.h"
#include "tags/session/GameRow.h"

namespace torvane {

namespace {
constexpr qint64 largestDatabase = 512 << 20; // in bytes, as in the window

QByteArray databaseIn(const QByteArray& path) {
    const File file = File::ofReal(path);
    if (file.length() > largestDatabase) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    return file.readAll();
}

// That of the tag or, without one, the name of the file without its kind; empty if no title can be like that.
QByteArray titleOf(const GameFile& game, const TagEdits::State& state, const NameCut& cut) {
    if (state.tag) return state.tag->fields.title;
    const QByteArray name = game.name.sliced(game.name.lastIndexOf('/') + 1);
    const QString title = cut.firstPiece(NativeText::fromNative(name));
    return CodePage1252::holds(title) ? CodePage1252::toBytes(title) : QByteArray();
}

GivenTag tagOf(const OnlineDbEntry& entry) {
    return GivenTag::of({entry.Company, entry.Title, entry.Date, entry.Info, {}});
}
} // namespace

std::vector<OptionForm> ImportCommand::options() const { return ChangeRows::options(); }

QByteArray ImportCommand::help() const {
    return "[OPTION]... DATABASE [FOLDER|FILE]...\n"
           "Gives each game the tag that the database file has for its title and console.\n"
           "Without games: to those of the library. The title of a game is that of its\n"
           "tag or, without one, the name of its file without the kind; small and capital\n"
           "letters are the same. All games of a title get the tag. If several entries\n"
           "have a game's title and differ, it is reported and stays as it is. Archives\n"
           "are left out.\n"
           "\n" +
           ChangeRows::help();
}

QByteArray ImportCommand::faultOf(const Arguments& given) const {
    return given.operands.isEmpty() ? "a database file is missing" : QByteArray();
}

void ImportCommand::run(const Arguments& given, Session& session) {
    const QByteArray path = given.operands.front();
    session.attempt(path, [&] {
        const TitledEntries entries(databaseIn(path));
        if (entries.isEmpty()) return session.reports().fault(path, "it has no entries");
        GameFiles games = session.games(given.operands.sliced(1));
        if (given.operands.size() == 1) games.addLibrary();
        TagEdits edits(ChangeRows::modeOf(given), session);
        ChangeRows rows(given, session.output());
        Work work{session, entries, edits, rows};
        const auto import = [&](const GameFile& game) {
            const QByteArray fault = importOne(game, work);
            if (!fault.isEmpty()) session.reports().fault(game.name, fault);
        };
        session.eachGame(games, import, rows.writer());
        edits.finish();
        rows.finish();
    });
}

// Gives why it is refused, without a line end; empty if it is done or needs nothing.
QByteArray ImportCommand::importOne(const GameFile& game, Work& work) {
    const NameCut& names = work.session.names();
    if (!faultOfWriting(game.name, names).isEmpty()) return {};
    const TagEdits::State state = work.edits.stateOf(game);
    const QByteArray system = EntryLine::systemOf(GameRow::consoleOf(game.name, state.length, names));
    const TitledEntries::Match match = work.entries.find(titleOf(game, state, names), system);
    if (match.hasRivals) return "several entries have its title, and they differ";
    if (!match.entry) return {};
    // The entry has a date, so that of today is not needed.
    const GivenTag::Result result = tagOf(*match.entry).over(state.tag, state.length, {});
    if (!result.fault.isEmpty() || !result.isNew) return result.fault;
    const TagEdit edit{game, result.fields};
    work.rows.add(edit, state);
    work.edits.add(edit, state);
    return {};
}

} // namespace torvane
