// SPDX-License-Identifier: MIT
// Lists first, then games, then what became of both.
#include "IdentifyCommand.h"
#include "tags/lists/GameLists.h"
#include "tags/lists/IdentifyTask.h"
#include "tags/lists/NamedTags.h"
#include "tags/rows/RowFormat.h"

namespace torvane {

namespace {
class Identification {
public:
    Identification(const Arguments& given, Session& session)
        : m_given(given), m_session(session), m_lists(session) {}

    void readLists() {
        for (const auto& option : m_given.options) {
            if (option.name != "--dat" || m_session.isOver()) continue;
            m_session.attempt(option.value, [&] { m_lists.add(option.value); });
        }
        m_lists.close();
    }
    bool hasLists() const { return !m_lists.isEmpty(); }

    void readGames() {
        GameFiles games = m_session.games(m_given.operands);
        if (m_given.operands.isEmpty()) games.addLibrary();
        m_unread = games.faults();
        const auto depth =
            m_given.has("--deep") ? IdentifyTask::Depth::unpackAll : IdentifyTask::Depth::asNeeded;
        runTasks(games, m_session, [&](const GameFile& game) {
            return std::make_unique<IdentifyTask>(game, m_session, m_lists.index(), depth, m_games);
        });
        m_unread += m_games.unread();
    }
    // After an interruption nothing is known for certain: what was not read would be missing.
    void report() {
        m_isFound.assign(m_lists.count(), true); // what can't be read again is not missing for certain
        m_lists.eachEntry(
            [this](const ListEntry& entry, size_t number) { m_isFound[number] = m_games.match(entry); });
        // What a rehearsal prints has other columns.
        if (m_session.isOver() || m_given.has("--dry-run")) return;
        const Columns columns{{"status"}, {"file"}, {"member"}, {"game"}, {"rom"}};
        m_rows = RowFormat::writer(m_given, RowFormat::Plain::table, columns, m_session.output());
        for (const FoundGame& game : m_games.all()) addRows(game);
        m_lists.eachEntry([this](const ListEntry& entry, size_t number) {
            if (m_isFound[number]) return;
            addRow("missing", {}, {}, &entry);
            m_hasMissing = true;
        });
        m_rows->finish();
    }
    // Nobody knows whether those are the missing ones.
    void remarkOnUnread() const {
        if (m_unread == 0 || !m_hasMissing) return;
        const char* text = m_unread == 1 ? " file could not be read: what it holds counts as missing"
                                         : " files could not be read: what they hold counts as missing";
        m_session.reports().remark(QByteArray::number(m_unread) + text);
    }
    void write() {
        if (!m_given.has("--write")) return;
        const auto which = m_given.has("--replace") ? NamedTags::Which::all : NamedTags::Which::untagged;
        NamedTags(which, m_given, m_session).write(m_games.all());
    }

private:
    void addRows(const FoundGame& game) {
        const std::vector<ListEntry> entries = game.entries();
        if (entries.empty()) return addRow("unknown", game.name, game.member, nullptr);
        for (const ListEntry& entry : entries)
            addRow(game.isDoubled ? "doubled" : "matched", game.name, game.member, &entry);
    }
    void addRow(const char* status, const QByteArray& file, const QByteArray& member,
                const ListEntry* entry) {
        const auto text = [](const QByteArray& bytes) {
            return bytes.isEmpty() ? Field() : Field::ofName(bytes);
        };
        m_rows->add({Field::ofName(status), text(file), text(member), entry ? text(entry->title) : Field(),
                     entry ? text(entry->rom) : Field()});
    }

    const Arguments& m_given;
    Session& m_session;
    std::unique_ptr<RowWriter> m_rows;
    GameLists m_lists;
    FoundGames m_games;
    std::vector<bool> m_isFound; // for each entry
    int m_unread = 0;            // files
    bool m_hasMissing = false;
};
} // namespace

std::vector<OptionForm> IdentifyCommand::options() const {
    std::vector<OptionForm> options = RowFormat::options();
    options.push_back({"--dat", OptionForm::Kind::value, "a file"});
    for (const char* name : {"--write", "--replace", "--dry-run", "--deep"}) options.push_back({name});
    return options;
}

QByteArray IdentifyCommand::help() const {
    return QByteArray("--dat LIST [OPTION]... [FOLDER|FILE]...\n"
                      "Finds each game in lists of known games, by checksum and size, without its\n"
                      "tag. Prints a line for each game that is matched, doubled (others are the\n"
                      "same, or lists have several names for it) or unknown, and for each one of the\n"
                      "lists that is missing. Without operands it takes the library.\n"
                      "\n"
                      "      --dat LIST  a list, in XML (Logiqx) or in text form; may be given again\n"
                      "      --deep      unpack all archives; else only where their directories do not\n"
                      "                  tell enough\n"
                      "      --write     give games without a tag title, company and year\n"
                      "      --replace   the same for games with a tag\n"
                      "      --dry-run   write nothing, print what --write would change instead\n") +
           RowFormat::help;
}

QByteArray IdentifyCommand::faultOf(const Arguments& given) const {
    if (!given.has("--dat")) return "a list is missing: give it with option '--dat'";
    for (const char* name : {"--replace", "--dry-run"}) {
        if (given.has(name) && !given.has("--write"))
            return QByteArray("option '") + name + "' needs option '--write'";
    }
    return {};
}

void IdentifyCommand::run(const Arguments& given, Session& session) {
    Identification identification(given, session);
    identification.readLists();
    if (!identification.hasLists()) return;
    identification.readGames();
    identification.report();
    if (!session.isOver()) identification.write();
    identification.remarkOnUnread();
}

} // namespace torvane
