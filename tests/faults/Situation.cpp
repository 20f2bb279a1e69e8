// SPDX-License-Identifier: MIT
// The operations and their initial files.
#include "Situation.h"
#include "TagBytes.h"
#include "catalogue/TagEnds.h"
#include "platform/base/SafeFile.h"
#include "settings/GeneralOptions.h"
#include "settings/LanguageFiles.h"

#include <array>
#include <sched.h>

namespace torvane::faults {

namespace {
constexpr std::array<const char*, 4> standingNames = {"nothing there", "shorter", "equal", "longer"};

const std::string sourceFile = "incoming/new.gb";
const std::string libraryCopy = "program/roms/new.gb";
const std::string outsideCopy = "elsewhere/game.gb";
const std::string newLanguage = "incoming/lang_eng.tvl";
const std::string languageCopy = "program/data/lang/lang_eng.tvl";

constexpr const char* savingSetting = "SaveSetting";
constexpr const char* storingOptions = "all general options";
constexpr const char* storingVersion = "version file";
constexpr const char* addingPage = "page added to the web list";
constexpr const char* deletingPage = "page deleted from the web list";
constexpr const char* updatingPages = "web list updated";
constexpr qsizetype pagesSize = 3000;

// Several threads would make their calls in another order each time.
class OneProcessor {
public:
    OneProcessor() {
        sched_getaffinity(0, sizeof m_all, &m_all);
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(sched_getcpu(), &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~OneProcessor() { sched_setaffinity(0, sizeof m_all, &m_all); }
    OneProcessor(const OneProcessor&) = delete;
    OneProcessor& operator=(const OneProcessor&) = delete;

private:
    cpu_set_t m_all{};
};

class Maker {
public:
    Maker(Workshop& workshop, ProgramParts& parts, qsizetype size, Standing standing)
        : m_workshop(workshop), m_parts(parts), m_size(size), m_standing(standing) {}

    Situation strip() {
        Situation made = onGame("StripRomTag");
        made.fresh = TagBytes::stripped(*made.old);
        if (made.fresh) made.end = m_size;
        made.run = [path = game()] { ID3::StripRomTag(path); };
        return made;
    }
    Situation replace() {
        Situation made = onGame("ReplaceRomTag");
        const bool hasBackup = m_standing == Standing::equal || m_standing == Standing::longer;
        if (hasBackup) made.before[backupFile] = {QByteArray(5000, 'b'), {}};
        const Content backup = hasBackup ? Content(made.before[backupFile].bytes) : Content();
        made.asides[backupFile] = {{backup, made.old}, {backup, made.old}};
        made.treasures = {{*made.old, {gameFile, backupFile}}};
        made.fresh = TagBytes::replaced(*made.old);
        made.run = [&id3 = m_parts.id3, path = game()] {
            id3.ReplaceRomTag(path, id3.NewTitle, id3.NewCompany, id3.NewDate, id3.NewInfo);
        };
        return made;
    }
    Situation append() {
        Situation made = onGame("AppendRomTag");
        made.fresh = TagBytes::appended(*made.old);
        made.end = made.old->size();
        made.run = [&id3 = m_parts.id3, path = game()] { id3.AppendRomTag(path); };
        return made;
    }
    Situation save() {
        Situation made = onGame("SaveRomTag");
        made.fresh = TagBytes::saved(*made.old);
        made.end = m_size;
        made.run = [&id3 = m_parts.id3, path = game()] { id3.SaveRomTag(path, [] {}); };
        return made;
    }
    Situation saveSetting() {
        Situation made = common(savingSetting, settingsFile);
        const qsizetype length = lengthBy(300);
        made.before[settingsFile].bytes.append("Player = " + QByteArray(length, 'p') + "\n");
        if (m_standing == Standing::none) made.before.erase(settingsFile);
        made.old = in(made.before, settingsFile);
        made.run = [&settings = m_parts.settings] {
            set(settings, "Player", QString(300, QLatin1Char('n')));
        };
        made.fresh = settingsAfter(made.before, made.run);
        return made;
    }
    Situation storeOptions() {
        Situation made = common(storingOptions, settingsFile);
        made.before[settingsFile].bytes.append(
            "Icon = 3\nMini = x\nPlayer = " + QByteArray(lengthBy(300), 'p') + "\n");
        if (m_standing == Standing::none) made.before.erase(settingsFile);
        made.old = in(made.before, settingsFile);
        made.run = [&settings = m_parts.settings] { GeneralOptions(settings).storeAll(); };
        made.fresh = settingsAfter(made.before, made.run);
        return made;
    }
    Situation storeVersion() {
        Situation made = common(storingVersion, versionFile);
        made.before["program/data/other.dat"] = {"kept", {}};
        const QByteArray body = "[Torvane]\r\nLastVersion=" + QByteArray(300, '2') + "\r\n";
        if (m_standing != Standing::none) {
            made.before[versionFile] = {TagBytes::image(lengthBy(body.size() + 2), 7), withMode(0664)};
        }
        made.old = in(made.before, versionFile);
        made.fresh = body + "\r\n";
        made.run = [&versions = m_parts.versions, body] { versions.write(body); };
        return made;
    }
    Situation copyOut() {
        Situation made = copy("CopyRom", gameFile, outsideCopy);
        if (m_standing == Standing::none) made.before.erase(settingsFile);
        const QString folder = m_parts.spelled("elsewhere");
        Aside& aside = made.asides[settingsFile];
        const auto unfinished = [this](const QString& value) {
            return [this, value] { set(m_parts.settings, "Unfinished", value); };
        };
        aside.afterNextStart = {in(made.before, settingsFile), settingsAfter(made.before, unfinished({}))};
        aside.meanwhile = aside.afterNextStart;
        aside.meanwhile.push_back(settingsAfter(made.before, unfinished(folder)));
        made.run = [&parts = m_parts, source = game(), target = m_parts.spelled(outsideCopy)] {
            parts.answer(target);
            parts.funciones.CopyRom(source, QStringLiteral("game.gb"));
        };
        return made;
    }
    Situation copyIn() {
        Situation made = copy("copy into the library", sourceFile, libraryCopy);
        made.run = [from = m_parts.spelled(sourceFile), to = m_parts.spelled(libraryCopy)] {
            SafeFile::copy(from, to);
        };
        return made;
    }

    Situation addLanguage() {
        Situation made = copy("language file added", newLanguage, languageCopy);
        made.before["program/data/lang/lang_esp.tvl"] = {"kept", {}};
        made.run = [&globals = m_parts.globals(), from = m_parts.spelled(newLanguage)] {
            LanguageFiles::add(globals, from);
        };
        return made;
    }
    Situation addPage() {
        Situation made = onPages(addingPage, ownPages);
        made.fresh = made.old.value_or(QByteArray()) + "\r\nname;address;perso\r\n";
        made.run = [&lists = m_parts.webLists] {
            lists.add(QStringLiteral("name"), QStringLiteral("address"));
        };
        return made;
    }
    Situation deletePage() {
        Situation made = onPages(deletingPage, ownPages);
        const bool hasBackup = m_standing == Standing::longer;
        if (hasBackup) made.before[ownPagesBackup] = {QByteArray(5000, 'b'), {}};
        const Content backup = hasBackup ? Content(made.before[ownPagesBackup].bytes) : Content();
        made.run = [&lists = m_parts.webLists] { lists.remove("name;address;perso"); };
        made.asides[ownPagesBackup] = {{backup, made.old}, {backup, made.old}, {made.old}};
        made.treasures = {{*made.old, {ownPages, ownPagesBackup}}};
        made.fresh = pagesBefore() + "\r\n" + pagesAfter() + "\r\n";
        return made;
    }
    Situation updatePages() {
        Situation made = onPages(updatingPages, sharedPages);
        const QByteArray body = TagBytes::image(pagesSize, 6);
        made.fresh = body + "\r\n";
        made.run = [&lists = m_parts.webLists, body] { lists.replaceShared(body); };
        return made;
    }

    Situation import(const char* operation, int count, bool deletesOriginals) {
        Situation made = common(operation, imported("program/roms/", 0));
        made.details += ", " + std::to_string(count) + " games";
        made.isBatch = true;
        for (int i = 0; i < count; ++i) addImport(made, i, deletesOriginals);
        made.old = in(made.before, made.subject);
        made.fresh = made.before[imported("incoming/", 0)].bytes;
        made.run = [&parts = m_parts, count, deletesOriginals] {
            parts.adding.begin([] {});
            for (int i = 0; i < count; ++i) {
                const std::string name = imported({}, i);
                parts.adding.AddRomToLibrary(parts.spelled("incoming/" + name), QString::fromStdString(name));
            }
            parts.adding.finish();
            const bool areAllGone = !deletesOriginals || parts.adding.deleteSources().kept.empty();
            if (!areAllGone) throw RuntimeFailure(RuntimeFailure::deviceError);
        };
        return made;
    }

    Situation tagMany(const char* operation, int count) {
        Situation made = common(operation, tagged(0));
        made.details += ", " + std::to_string(count) + " games";
        made.isBatch = true;
        for (int i = 0; i < count; ++i) addTagged(made, i);
        made.old = in(made.before, made.subject);
        made.fresh = TagBytes::saved(*made.old);
        made.end = m_size;
        made.run = [&parts = m_parts, count] {
            const OneProcessor one;
            EndChanges changes({}, TagEnds::remember);
            for (int i = 0; i < count; ++i) {
                changes.add(parts.spelled(tagged(i)),
                            [](const Handle& file) { return TagEnds::withTag(file, TagBytes::newFields()); });
            }
            for (const EndChanges::Result& result : changes.finish()) {
                if (result.failure) throw RuntimeFailure(*result.failure);
            }
        };
        return made;
    }

private:
    QString game() const { return m_parts.spelled(gameFile); }

    static std::string imported(const std::string& folder, int index) {
        return folder + "new" + std::to_string(index) + ".gb";
    }

    static std::string tagged(int index) { return "program/roms/many" + std::to_string(index) + ".gb"; }

    void addTagged(Situation& made, int index) const {
        const auto seed = static_cast<quint64>(40 + index);
        FileState& game = made.before[tagged(index)] = {TagBytes::image(m_size, seed), withMode(0664)};
        if (m_standing != Standing::none) game.bytes += TagBytes::line(m_size, "Old", oldLineLength());
        if (index == 0) return;
        const Content fresh = TagBytes::saved(game.bytes);
        made.asides[tagged(index)] = {.meanwhile = {},
                                      .afterNextStart = {game.bytes, fresh},
                                      .whenDone = {fresh},
                                      .isFreeMeanwhile = true};
    }

    void addImport(Situation& made, int index, bool deletesOriginals) const {
        const std::string source = imported("incoming/", index);
        const std::string target = imported("program/roms/", index);
        const auto seed = static_cast<quint64>(10 + index);
        const QByteArray game = TagBytes::image(m_size, seed);
        made.before[source].bytes = game;
        if (m_standing != Standing::none)
            made.before[target] = {TagBytes::image(lengthBy(m_size), 100 + seed), withMode(0640)};
        made.treasures.push_back({game, {source, target}});
        if (index > 0) {
            const Content old = in(made.before, target);
            made.asides[target] = {{old, game}, {old, game}, {game}};
        }
        // An original may stay, or come back after a power failure: that loses nothing.
        if (deletesOriginals) made.asides[source] = {{game, {}}, {game, {}}};
    }

    static void set(Settings& settings, const char* key, const QString& value) {
        settings.SaveSetting(Config::application, Config::section, QString::fromLatin1(key), value);
    }
    static Content in(const Tree& tree, const std::string& path) {
        const auto found = tree.find(path);
        return found == tree.end() ? Content() : Content(found->second.bytes);
    }
    qsizetype lengthBy(qsizetype length) const {
        return m_standing == Standing::shorter  ? length / 2
               : m_standing == Standing::longer ? length * 3 / 2
                                                : length;
    }

    Situation common(const char* operation, const std::string& subject) const {
        Situation made;
        made.operation = operation;
        made.details = std::to_string(m_size) + " bytes, " + standingNames[static_cast<size_t>(m_standing)];
        made.subject = subject;
        made.before[gameFile] = {TagBytes::image(m_size, 1), {}};
        made.before["program/roms/other.gb"] = {TagBytes::image(3000, 2), {}};
        made.before["elsewhere/other.txt"] = {"kept", {}};
        made.before["incoming/other.txt"] = {"kept", {}};
        made.before["config/other.txt"] = {"kept", {}};
        made.before[settingsFile] = {"[Config]\nLanguage = esp\n", withMode(0600)};
        return made;
    }

    // With another owner than the user who runs this, if that can be set.
    static Rights withMode(mode_t mode) {
        const bool isRoot = Rights().owner == 0;
        return isRoot ? Rights{mode, 1234, 2345} : Rights{mode, Rights().owner, Rights().group};
    }

    qsizetype oldLineLength() const {
        const qsizetype length = TagBytes::newLength(m_size);
        return m_standing == Standing::shorter ? 0 : m_standing == Standing::longer ? length + 200 : length;
    }

    Situation onGame(const char* operation) const {
        Situation made = common(operation, gameFile);
        FileState& file = made.before[gameFile];
        file.rights = withMode(0664);
        if (m_standing != Standing::none) file.bytes += TagBytes::line(m_size, "Old", oldLineLength());
        made.old = file.bytes;
        return made;
    }

    Situation copy(const char* operation, const std::string& source, const std::string& target) const {
        Situation made = common(operation, target);
        made.before[source].bytes = TagBytes::image(m_size, 3);
        if (m_standing != Standing::none)
            made.before[target] = {TagBytes::image(lengthBy(m_size), 4), withMode(0640)};
        made.old = in(made.before, target);
        made.fresh = made.before[source].bytes;
        return made;
    }

    QByteArray pagesBefore() const { return TagBytes::image(lengthBy(pagesSize), 4); }
    QByteArray pagesAfter() const { return "\r\n" + TagBytes::image(lengthBy(pagesSize), 5); }

    Situation onPages(const char* operation, const std::string& file) const {
        Situation made = common(operation, file);
        made.before["program/data/other.dat"] = {"kept", {}};
        if (m_standing != Standing::none)
            made.before[file] = {pagesBefore() + "name;address;perso" + pagesAfter(), withMode(0664)};
        made.old = in(made.before, file);
        return made;
    }

    // The layout of the settings file is up to SimpleIni: the expected content comes from a run without
    // faults.
    Content settingsAfter(const Tree& before, const std::function<void()>& change) const {
        m_workshop.layOut(before);
        change();
        return m_workshop.read(settingsFile);
    }

    Workshop& m_workshop;
    ProgramParts& m_parts;
    qsizetype m_size;
    Standing m_standing;
};
} // namespace

void startNext(const Workshop& workshop, const Situation& situation) {
    if (situation.resume) situation.resume();
    startNext(workshop);
}

bool isOnSmallFile(const std::string& operation) {
    return operation == savingSetting || operation == storingOptions || operation == storingVersion ||
           operation == addingPage || operation == deletingPage || operation == updatingPages;
}

std::vector<Situation> situations(Workshop& workshop, ProgramParts& parts, qsizetype imageSize,
                                  const Standings& standings) {
    std::vector<Situation> all;
    for (const Standing standing : standings) {
        Maker make(workshop, parts, imageSize, standing);
        all.push_back(make.strip());
        all.push_back(make.replace());
        all.push_back(make.append());
        all.push_back(make.save());
        all.push_back(make.saveSetting());
        all.push_back(make.storeOptions());
        all.push_back(make.storeVersion());
        all.push_back(make.copyOut());
        all.push_back(make.copyIn());
        all.push_back(make.addLanguage());
        all.push_back(make.addPage());
        if (standing != Standing::none) all.push_back(make.deletePage());
        all.push_back(make.updatePages());
    }
    return all;
}

std::vector<Situation> batches(Workshop& workshop, ProgramParts& parts, qsizetype imageSize,
                               const Standings& standings, bool isLarge) {
    std::vector<Situation> all;
    for (const Standing standing : standings) {
        Maker make(workshop, parts, imageSize, standing);
        all.push_back(make.import("games into the library", isLarge ? 9 : 3, false));
        all.push_back(make.import("games, originals deleted", isLarge ? 9 : 3, true));
        all.push_back(make.tagMany("tags of several games", isLarge ? 9 : 3));
    }
    return all;
}

} // namespace torvane::faults
