// SPDX-License-Identifier: MIT
// The same texts for all games, or those of a table for each.
#include "SetCommand.h"
#include "catalogue/TagInput.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/File.h"
#include "tags/edits/TagTable.h"
#include "tags/edits/WritableGame.h"

namespace torvane {

namespace {
constexpr qint64 largestTable = 64 << 20; // in bytes; 100,000 games take some 20 MiB

GivenTag givenBy(const Arguments& given) {
    return {given.value("--title"), given.value("--company"), given.value("--info"), given.value("--date")};
}

QByteArray contentOf(const QByteArray& path) {
    const File file = File::ofReal(path);
    if (file.length() > largestTable) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    return file.readAll();
}
} // namespace

std::vector<OptionForm> SetCommand::options() const {
    using Kind = OptionForm::Kind;
    std::vector<OptionForm> options = ChangeRows::options();
    for (const char* name : {"--title", "--company", "--info", "--date"})
        options.push_back({name, Kind::text, "a text"});
    options.push_back({"--from", Kind::value, "a file"});
    return options;
}

QByteArray SetCommand::help() const {
    return "[OPTION]... [FOLDER|FILE]...\n"
           "Gives each game a tag, or other texts in the tag that it has. A field that is\n"
           "not given keeps what is there. Title, company and info are required; the date\n"
           "is that of today unless it is given. A game whose texts are the same already\n"
           "stays as it is.\n"
           "\n"
           "      --title TEXT    the title\n"
           "      --company TEXT  the company\n"
           "      --info TEXT     the line of notes\n"
           "      --date TEXT     the date, in any form\n"
           "      --from FILE     take games and texts from lines with tabs, under a header\n"
           "                      with the columns file, title, company, info and date\n" +
           ChangeRows::help();
}

QByteArray SetCommand::faultOf(const Arguments& given) const {
    const bool hasTexts = !givenBy(given).isEmpty();
    if (given.has("--from")) {
        return hasTexts || !given.operands.isEmpty() ? "option '--from' takes games and texts from its file"
                                                     : QByteArray();
    }
    if (!hasTexts) return "there is nothing to set: give a text or option '--from'";
    return given.operands.isEmpty() ? "a file is missing" : QByteArray();
}

void SetCommand::run(const Arguments& given, Session& session) {
    TagEdits edits(ChangeRows::modeOf(given), session);
    ChangeRows rows(given, session.output());
    Work work{session, edits, rows, CodePage1252::toBytes(TagInput::todayAsText())};
    const auto table = given.value("--from");
    table ? setFromTable(*table, work) : setGiven(given, work);
    edits.finish();
    rows.finish();
}

void SetCommand::setGiven(const Arguments& given, Work& work) {
    const GivenTag tag = givenBy(given);
    const QByteArray fault = tag.fault();
    // One message instead of one for each game.
    if (!fault.isEmpty()) return work.session.reports().refusal(fault);
    const auto set = [&](const GameFile& game) {
        const QByteArray reason = setOne(game, tag, work);
        if (!reason.isEmpty()) work.session.reports().fault(game.name, reason);
    };
    work.session.eachGame(work.session.games(given.operands), set, work.rows.writer());
}

void SetCommand::setFromTable(const QByteArray& path, Work& work) {
    Session& session = work.session;
    Reports& reports = session.reports();
    session.attempt(path, [&] {
        TagTable table(contentOf(path));
        if (!table.fault().isEmpty()) return reports.fault(path + ": line 1", table.fault());
        reports.begin(table.lineCount());
        while (!session.isOver()) {
            const auto row = table.next();
            if (!row) break;
            session.attempt(row->file, [&] {
                const QByteArray place = path + ": line " + QByteArray::number(row->line);
                if (!row->fault.isEmpty()) return reports.fault(place, row->fault);
                if (row->tag.isEmpty()) return;
                const GameFile game{row->file, GameFiles::found(row->file, session.library())};
                const QByteArray fault = setOne(game, row->tag, work);
                if (!fault.isEmpty()) reports.fault(place + ": " + row->file, fault);
            });
            reports.step();
        }
        reports.end();
    });
}

// Gives why it is refused, without a line end; empty if it is done or needs nothing.
QByteArray SetCommand::setOne(const GameFile& game, const GivenTag& tag, Work& work) {
    QByteArray fault = faultOfWriting(game.name, work.session.names());
    if (!fault.isEmpty()) return fault;
    const TagEdits::State state = work.edits.stateOf(game);
    const GivenTag::Result result = tag.over(state.tag, state.length, work.today);
    if (!result.fault.isEmpty()) return result.fault;
    if (!result.isNew) return {};
    const TagEdit edit{game, result.fields};
    work.rows.add(edit, state);
    work.edits.add(edit, state);
    return {};
}

} // namespace torvane
