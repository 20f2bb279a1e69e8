// SPDX-License-Identifier: MIT
// Reading tags, and writing all of the file at once.
#include "ExportCommand.h"
#include "EntryLine.h"
#include "catalogue/TagWindow.h"
#include "platform/base/Arrival.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/File.h"
#include "platform/base/FileRights.h"
#include "platform/base/NativeText.h"
#include "tags/session/GameRow.h"

namespace torvane {

namespace {
QByteArray authorOf(const Arguments& given) {
    return CodePage1252::toBytes(NativeText::fromNative(given.value("--author").value_or(QByteArray())));
}

// The line of a game; empty if it has no tag.
QByteArray lineOf(const GameFile& game, const QByteArray& author, Session& session) {
    const File file = File::ofReal(game.path);
    const qint64 length = file.length();
    const auto tag = TagWindow::tag(file.handle(), length);
    if (!tag) return {};
    const TagLine::Fields& fields = tag->fields;
    const OnlineDbEntry entry{EntryLine::systemOf(GameRow::consoleOf(game.name, length, session.names())),
                              fields.title,
                              fields.company,
                              fields.date,
                              fields.info,
                              "USER",
                              author};
    const QByteArray fault = EntryLine::faultOf(entry);
    if (fault.isEmpty()) return EntryLine::of(entry);
    session.reports().fault(game.name, fault);
    return {};
}

// Under just this name: a file whose name has other letters, small or capital, is another one.
void writeFile(const QByteArray& path, const QByteArray& bytes) {
    const Place place = placeOf(path);
    struct stat info {};
    if (stat(place.folder.constData(), &info) != 0) throw RuntimeFailure(RuntimeFailure::pathNotFound);
    FileRights::refuseUnlessWritable(path);
    Arrival arrival(place);
    arrival.fresh().write(bytes);
    arrival.commit();
}
} // namespace

std::vector<OptionForm> ExportCommand::options() const {
    using Kind = OptionForm::Kind;
    return {{"--output", Kind::value, "a file"}, {"--author", Kind::text, "a text"}};
}

QByteArray ExportCommand::help() const {
    return "[OPTION]... [FOLDER|FILE]...\n"
           "Prints the tags of games as a file of the tag database: a line for each game\n"
           "that has a tag. Without operands: of the games of the library. What can't be\n"
           "an entry is reported and left out.\n"
           "\n"
           "      --output FILE  write to a file, all of it at once, instead of printing\n"
           "      --author TEXT  the author of the entries; none if it is not given\n";
}

QByteArray ExportCommand::faultOf(const Arguments& given) const {
    const QByteArray author = given.value("--author").value_or(QByteArray());
    if (!CodePage1252::holds(NativeText::fromNative(author)))
        return "option '--author': a character is not in code page 1252";
    OnlineDbEntry entry;
    entry.System = "byn";
    entry.Author = authorOf(given);
    const QByteArray fault = EntryLine::faultOf(entry);
    return fault.isEmpty() ? fault : "option '--author': " + fault;
}

void ExportCommand::run(const Arguments& given, Session& session) {
    GameFiles games = session.games(given.operands);
    if (given.operands.isEmpty()) games.addLibrary();
    const auto path = given.value("--output");
    const QByteArray author = authorOf(given);
    QByteArray lines;
    session.eachGame(games, [&](const GameFile& game) {
        const QByteArray line = lineOf(game, author, session);
        path ? void(lines += line) : session.output().write(line);
    });
    if (!path) return;
    // Half of a library is not what was asked for.
    if (session.isOver()) return session.reports().fault(*path, "nothing was written");
    session.attempt(*path, [&] { writeFile(*path, lines); });
}

} // namespace torvane
