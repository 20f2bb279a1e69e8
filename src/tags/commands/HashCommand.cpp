// SPDX-License-Identifier: MIT
// A task for each file; rows in the order of the files.
#include "HashCommand.h"
#include "tags/images/GameTasks.h"
#include "tags/rows/RowFormat.h"

#include <algorithm>

namespace torvane {

namespace {
// Nothing if a name is unknown or missing.
std::optional<WantedSums> wantedBy(const QByteArray& list) {
    WantedSums wanted;
    for (const QByteArray& name : list.split(',')) {
        const auto found = std::find(sumNames.begin(), sumNames.end(), name);
        if (found == sumNames.end()) return std::nullopt;
        wanted.set(static_cast<size_t>(found - sumNames.begin()));
    }
    return wanted;
}

WantedSums wantedBy(const Arguments& given) {
    const auto list = given.value("--only");
    return list ? *wantedBy(*list) : WantedSums().set();
}

Columns columnsOf(WantedSums wanted) {
    Columns columns{{"file"}, {"member"}, {"size", true}};
    for (size_t kind = 0; kind < sumKinds; ++kind) {
        if (wanted[kind]) columns.push_back({sumNames[kind]});
    }
    return columns;
}

class HashTask : public GameTask {
public:
    HashTask(const GameFile& game, WantedSums wanted, RowWriter& rows, Session& session)
        : GameTask(game, session), m_wanted(wanted), m_writer(rows) {}

private:
    void readFile() override {
        const GameImage image(game().path);
        const qint64 length = image.end().length();
        add({}, {length, image.sums(length, m_wanted)});
    }
    void readArchive() override {
        GameArchive archive(game().path, names());
        const auto lengths = [](const ImageEnd& end) { return std::vector{end.length()}; };
        for (const auto& member : archive.members()) {
            const auto read = archive.read(member, m_wanted, lengths);
            if (!read.fault.isEmpty()) addFault(member.name, read.fault);
            for (const SummedImage& image : read.images) add(member.name, image);
        }
    }
    void add(const QByteArray& member, const SummedImage& image) {
        m_rows.push_back({Field::ofName(game().name), member.isEmpty() ? Field() : Field::ofName(member),
                          Field::ofNumber(image.length)});
        for (size_t kind = 0; kind < sumKinds; ++kind) {
            if (m_wanted[kind]) m_rows.back().push_back(Field::ofName(image.sums[kind].toHex()));
        }
    }
    void take() override {
        for (const Row& row : m_rows) m_writer.add(row);
    }

    WantedSums m_wanted;
    RowWriter& m_writer;
    std::vector<Row> m_rows;
};
} // namespace

std::vector<OptionForm> HashCommand::options() const {
    std::vector<OptionForm> options = RowFormat::options();
    options.push_back({"--only", OptionForm::Kind::value, "names of checksums"});
    return options;
}

QByteArray HashCommand::help() const {
    return QByteArray("[OPTION]... [FOLDER|FILE]...\n"
                      "Prints the size and the checksums of each game as it was before it got a tag: a\n"
                      "tag is left out, and so are the line ends that saves of tags have added. Of an\n"
                      "archive these are the games in it. Without operands it takes the library.\n"
                      "\n"
                      "      --only LIST  only these of crc32, md5, sha1 and sha256, between commas\n") +
           RowFormat::help;
}

QByteArray HashCommand::faultOf(const Arguments& given) const {
    const auto list = given.value("--only");
    return !list || wantedBy(*list)
               ? QByteArray()
               : "option '--only' takes crc32, md5, sha1 and sha256, with commas between";
}

void HashCommand::run(const Arguments& given, Session& session) {
    GameFiles games = session.games(given.operands);
    if (given.operands.isEmpty()) games.addLibrary();
    const WantedSums wanted = wantedBy(given);
    const auto rows = RowFormat::writer(given, RowFormat::Plain::table, columnsOf(wanted), session.output());
    runTasks(
        games, session,
        [&](const GameFile& game) { return std::make_unique<HashTask>(game, wanted, *rows, session); },
        rows.get());
    rows->finish();
}

} // namespace torvane
