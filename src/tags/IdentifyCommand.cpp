// SPDX-License-Identifier: MIT
// Lists first, then games, then what became of both.
#include "IdentifyCommand.h"
#include "GameList.h"
#include "IdentifyTask.h"
#include "NamedTags.h"
#include "RowFormat.h"

namespace torvane {

namespace {
constexpr int mostFlaws = 10; // of a list that are reported one by one

class Identification {
public:
    Identification(const Arguments& given, Session& session) : m_given(given), m_session(session) {}

    void readLists() {
        for (const auto& option : m_given.options) {
            if (option.name != "--dat" || m_session.isOver()) continue;
            m_session.attempt(option.value, [&] { readList(option.value); });
        }
        m_index.close();
    }
    bool hasLists() const { return !m_lists.empty(); }

    void readGames() {
        GameFiles games = m_session.games(m_given.operands);
        if (m_given.operands.isEmpty()) games.addLibrary();
        m_unread = games.faults();
        const auto depth =
            m_given.has("--deep") ? IdentifyTask::Depth::unpackAll : IdentifyTask::Depth::asNeeded;
        runTasks(games, m_session, [&](const GameFile& game) {
            return std::make_unique<IdentifyTask>(game, m_session, m_index, depth, m_games);
        });
        m_unread += m_games.unread();
    }
    // After an interruption nothing is known for certain: what was not read would be missing.
    void report() {
        eachEntry([this](const ListEntry& entry, size_t) { m_isFound.push_back(m_games.match(entry)); });
        // What a rehearsal prints has other columns.
        if (m_session.isOver() || m_given.has("--dry-run")) return;
        const Columns columns{{"status"}, {"file"}, {"member"}, {"game"}, {"rom"}};
        m_rows = RowFormat::writer(m_given, RowFormat::Plain::table, columns, m_session.output());
        for (const FoundGame& game : m_games.all()) addRows(game);
        eachEntry([this](const ListEntry& entry, size_t number) {
            if (number >= m_isFound.size() || m_isFound[number]) return;
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
    struct NamedList {
        QByteArray name;
        GameList list;
    };

    // A list that is broken is of no use as a whole: what it lacks would be missing for certain.
    void readList(const QByteArray& name) {
        NamedList list{name, GameList(name)};
        ListIndex index;
        const auto isFull = [&] { return m_index.count() + index.count() > ListIndex::mostEntries; };
        int flaws = 0;
        const auto flaw = [&](qint64 line, const QByteArray& reason) {
            if (++flaws > mostFlaws) return;
            m_session.reports().fault(name + ": line " + QByteArray::number(line), reason);
        };
        const QByteArray fault = list.list.read({[&](const ListEntry& entry) { index.add(entry); }, flaw,
                                                 [&] { return m_session.isOver() || isFull(); }});
        if (flaws > mostFlaws) m_session.reports().fault(name, "there are more such entries");
        if (isFull()) return m_session.reports().fault(name, "there are too many entries");
        if (!fault.isEmpty()) return m_session.reports().fault(name, fault);
        m_index.add(std::move(index));
        m_lists.push_back(std::move(list));
    }

    // In their order, with their numbers in all lists.
    void eachEntry(const std::function<void(const ListEntry&, size_t)>& take) const {
        size_t number = 0;
        for (const NamedList& list : m_lists) {
            m_session.attempt(
                list.name, [&] { list.list.each([&](const ListEntry& entry) { take(entry, number++); }); });
        }
    }

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
    std::vector<NamedList> m_lists;
    ListIndex m_index;
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
