// SPDX-License-Identifier: MIT
// Runs all benchmarks on two libraries that it makes, and prints one table. Times differ from machine to
// machine and from minute to minute, so most limits are ratios of medians whose samples were taken in turns.
// Ends with 0 if all limits were kept, 1 if one was missed, 3 if something could not be measured.
#include "Child.h"
#include "GameLibrary.h"
#include "Report.h"
#include "ScratchFolder.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace torvane::bench {
namespace fs = std::filesystem;

namespace {
constexpr int rounds = 7;
constexpr const char* holdMilliseconds = "1000";

std::string format(const char* pattern, double a, double b = 0, double c = 0) {
    char text[128];
    std::snprintf(text, sizeof text, pattern, a, b, c);
    return text;
}

/// A program folder with a library, and the settings that go with it.
struct Library {
    std::string name; ///< the prefix of its series
    fs::path folder;
    fs::path configuration;

    Library(std::string libraryName, const fs::path& scratch, int games)
        : name(std::move(libraryName)), folder(scratch / std::to_string(games) / "torvane"),
          configuration(scratch / std::to_string(games) / "config") {
        makeLibrary(TORVANE_FOLDER, folder, games);
        makeSettings(configuration, folder);
    }
};

class Benchmarks {
public:
    Benchmarks(const fs::path& programs, const fs::path& scratch)
        : m_programs(programs), m_empty("0", scratch, 0), m_small("10,000", scratch, 10'000),
          m_large("100,000", scratch, 100'000), m_installed(installProgram(TORVANE_FOLDER, scratch / "usr")) {
    }

    bool runAll() {
        for (int round = 0; round <= rounds; ++round) takeStarts(round > 0);
        for (int round = 0; round <= rounds; ++round) takeStartsFromOutside(round > 0);
        for (int round = 0; round <= 3 * rounds; ++round) takeStartsAtHome(round);
        for (int round = 0; round <= rounds; ++round) takeSelections(round > 0);
        for (int round = 0; round <= rounds; ++round) takeCompactStarts(round > 0);
        Report::printHead();
        reportStarts();
        reportStartsAtHome();
        reportSecondStart();
        reportMemory();
        reportSelections();
        reportCompact();
        reportSearch();
        reportButtons();
        reportWrites();
        reportImports();
        reportArchives();
        reportNames();
        reportTags();
        reportSums();
        reportLists();
        reportDatabase();
        reportGallery();
        return m_report.allKept();
    }

private:
    std::string program(const char* name) const { return (m_programs / name).string(); }

    // One round of all starts; the first round only warms up.
    void takeStarts(bool counts) {
        const auto take = [&](const std::string& series, const Values& values) {
            if (!counts) return;
            m_report.sample(series + " start", (values.at("painted") - values.at("started")) / 1e6);
            m_report.sample(series + " painted", values.at("painted-kB") / 1024);
            m_report.sample(series + " settled", values.at("settled-kB") / 1024);
        };
        take("bare", run({program("bench_bare_window"), holdMilliseconds}, m_small.configuration));
        for (const Library* library : {&m_small, &m_large}) {
            take(library->name, run({program("bench_main_window"), library->folder, library->configuration,
                                     holdMilliseconds},
                                    library->configuration));
        }
    }

    void takeStartsFromOutside(bool counts) {
        const auto take = [&](const std::string& series, std::vector<std::string> command,
                              const Library& library) {
            command.insert(command.begin(), program("bench_from_outside"));
            const Values values = run(command, library.configuration);
            if (counts) m_report.sample(series + " shown", values.at("shown") / 1e6);
        };
        take("bare", {program("bench_bare_window"), "20000"}, m_small);
        for (const Library* library : {&m_small, &m_large}) {
            take(library->name, {library->folder / "torvane"}, *library);
        }
    }

    // The same folder as the home of both: the first start of the installed program lays out what it lacks.
    // They take turns in being first.
    void takeStartsAtHome(int round) {
        const auto shown = [this](const fs::path& torvane) {
            return run({program("bench_from_outside"), torvane}, m_small.configuration).at("shown") / 1e6;
        };
        setenv("XDG_DATA_HOME", m_small.folder.parent_path().c_str(), 1);
        const std::array programs = {m_small.folder / "torvane", m_installed};
        std::array<double, 2> times{};
        for (const int which : {round % 2, 1 - round % 2}) times.at(which) = shown(programs.at(which));
        if (round > 0) m_report.sample("portable", times[0]);
        if (round > 0) m_report.sample("home", times[1] - times[0]);
        unsetenv("XDG_DATA_HOME");
    }

    void takeSelections(bool counts) {
        for (const Library* library : {&m_small, &m_large}) {
            const Values values = run({program("bench_selections"), library->folder, library->configuration},
                                      library->configuration);
            if (!counts) continue;
            for (const char* name : {"most-bytes", "mean-bytes", "opens", "processor"}) {
                m_report.sample(library->name + ' ' + name, values.at(name));
            }
        }
    }

    void takeCompactStarts(bool counts) {
        for (const char* which : {"0", "1"}) {
            const Values values =
                run({program("bench_compact"), m_small.folder, m_small.configuration, "start", which},
                    m_small.configuration);
            if (!counts) continue;
            m_report.sample(std::string("compact ") + which,
                            (values.at("painted") - values.at("started")) / 1e6);
        }
    }

    void rowAgainstBare(const std::string& what, const Library& library, const char* series, double limit,
                        const char* pattern) {
        const double own = m_report.median(library.name + ' ' + series);
        const double bare = m_report.median(std::string("bare ") + series);
        m_report.row(what + ", " + library.name + " games", own / bare, limit, format(pattern, own, bare));
    }

    void reportStarts() {
        const char* pattern = "%.1f ms against %.1f ms of a bare window";
        rowAgainstBare("Start to the painted window", m_small, "start", 2.0, pattern);
        rowAgainstBare("Start to the painted window", m_large, "start", 3.5, pattern);
        rowAgainstBare("The same seen from outside", m_small, "shown", 2.0, pattern);
        rowAgainstBare("The same seen from outside", m_large, "shown", 3.5, pattern);
    }

    void reportStartsAtHome() {
        m_report.row("Milliseconds that a home of its own adds", m_report.median("home"), 5,
                     format("with nothing to lay out, to the %.1f ms of a portable start",
                            m_report.median("portable")));
    }

    void reportSecondStart() {
        const fs::path game = *fs::directory_iterator(m_large.folder / "roms");
        const Values values = run(
            {program("bench_second_start"), m_large.folder / "torvane", game, std::to_string(10 * rounds)},
            m_large.configuration);
        m_report.row(
            "Milliseconds of a second start", values.at("second") / 1e6, 50,
            format("with a game to select; %.1f ms to print the version", values.at("version") / 1e6));
    }

    void reportMemory() {
        const char* pattern = "%.1f MB against %.1f MB of a bare window";
        rowAgainstBare("Peak memory when painted", m_small, "painted", 1.6, pattern);
        rowAgainstBare("Peak memory when painted", m_large, "painted", 2.2, pattern);
        rowAgainstBare("Peak memory with the banner", m_small, "settled", 1.6, pattern);
        rowAgainstBare("Peak memory with the banner", m_large, "settled", 2.2, pattern);
    }

    void reportSelections() {
        const auto of = [this](const Library& library, const char* name) {
            return m_report.median(library.name + ' ' + name);
        };
        for (const Library* library : {&m_small, &m_large}) {
            const std::string games = ", " + library->name + " games";
            m_report.row("Bytes read at a selection" + games, of(*library, "most-bytes"), 1024,
                         format("the most of 1,000; %.1f on average, %.2f opened files",
                                of(*library, "mean-bytes"), of(*library, "opens")));
            m_report.row("Milliseconds of a selection" + games, of(*library, "processor") / 1e6, 1,
                         "processor time with the repaint, mean of 1,000");
        }
        m_report.row("Selection in 100,000 games against 10,000",
                     of(m_large, "processor") / of(m_small, "processor"), 1.3, "processor time");
    }

    void reportCompact() {
        const double plain = m_report.median("compact 0");
        const double compact = m_report.median("compact 1");
        m_report.row(
            "Milliseconds that the compact window adds", compact - plain, 15,
            format("%.1f ms to a start with it against %.1f ms with the main window", compact, plain));
        const Values values = run(
            {program("bench_compact"), m_large.folder, m_large.configuration, "use", std::to_string(rounds)},
            m_large.configuration);
        m_report.row("A step against a selection", values.at("step") / values.at("selection"), 1.5,
                     format("%.3f ms against %.3f ms of processor time with the repaint",
                            values.at("step") / 1e6, values.at("selection") / 1e6));
        m_report.row("Per cent of a processor for its line", values.at("tick") * 2 / 1e7, 0.1,
                     format("%.3f ms a tick; with all that runs %.3f shown, %.3f hidden",
                            values.at("tick") / 1e6, values.at("shown") / 1e7, values.at("hidden") / 1e7));
    }

    void reportSearch() {
        const Values values =
            run({program("bench_search"), m_large.folder, m_large.configuration, std::to_string(rounds)},
                m_large.configuration);
        m_report.row("Milliseconds of a search by title, 100,000 games", values.at("found") / 1e6, 5,
                     format("processor time to the painted list; %.1f for a title that is not there",
                            values.at("missing") / 1e6));
    }

    void reportButtons() {
        for (int round = 0; round < rounds; ++round) {
            const Values values =
                run({program("bench_buttons"), m_small.folder, m_small.configuration}, m_small.configuration);
            for (const char* name : {"mean", "costliest"}) m_report.sample(name, values.at(name));
        }
        m_report.row("Milliseconds to paint the costliest button", m_report.median("costliest") / 1e6, 0.2,
                     format("processor time; %.3f on average of all", m_report.median("mean") / 1e6));
    }

    void reportWrites() {
        const auto timesOf = [&](const char* name) {
            return run({program(name), m_small.folder, std::to_string(rounds)}, m_small.configuration);
        };
        const Values saves = timesOf("bench_saves");
        m_report.row("Saving the tag of a 32 MiB game", saves.at("large") / saves.at("small"), 1.3,
                     format("%.2f ms; the other of 32 KiB", saves.at("large") / 1e6));
        const Values tags = timesOf("bench_taggings");
        m_report.row("First tags of 1,000 games of 1 MiB", tags.at("tagging") / tags.at("plain"), 2,
                     format("%.0f ms; plain appends, synced as often", tags.at("tagging") / 1e6));
        const double least = tags.at("plain") + tags.at("reading");
        m_report.row("The same, with the reading of all games", tags.at("tagging") / least, 2,
                     format("%.0f ms: a tag may be anywhere", tags.at("reading") / 1e6));
    }

    // The library of the first is empty, and what it imports is not an archive.
    void reportImports() {
        const Values values =
            run({program("bench_imports"), m_empty.folder, m_empty.configuration, std::to_string(rounds)},
                m_empty.configuration);
        const double import = values.at("import") / 1e6;
        const double copy = values.at("copy") / 1e6;
        m_report.row("The assistant copies 1,000 games", import / copy, 1.5,
                     format("%.1f ms against %.1f ms of cp and sync, %.1f ms of cp", import, copy,
                            values.at("unsynced") / 1e6));
    }

    void reportArchives() {
        const Values values =
            run({program("bench_archives"), m_empty.folder, m_empty.configuration, std::to_string(rounds)},
                m_empty.configuration);
        const double open = values.at("open") / 1e6;
        const double unzip = values.at("unzip") / 1e6;
        m_report.row("Opening an archive of 32 MiB", open / unzip, 1.5,
                     format("%.1f ms against %.1f ms of unzip", open, unzip));
        m_report.row("Seconds to list 10,000 small members", values.at("many") / 1e9, 2,
                     "unpacked and painted");
    }

    void reportNames() {
        const Values values = run({program("bench_names"), m_large.folder / "roms", std::to_string(rounds)},
                                  m_large.configuration);
        const double table = values.at("table") / 1e6;
        const double plain = values.at("plain") / 1e6;
        m_report.row("The list of 100,000 names", table / plain, 3,
                     format("%.1f ms against %.1f ms of reading and sorting plainly", table, plain));
    }

    // The command is the one of the program's folder, as it is shipped.
    void reportTags() {
        const auto runWith = [&](const char* count) {
            return run({program("bench_tags"), TORVANE_FOLDER "/torvane-tags", count, std::to_string(rounds)},
                       m_small.configuration);
        };
        const Values values = runWith("10000");
        const double list = values.at("list") / 1e6;
        const double plain = values.at("plain") / 1e6;
        m_report.row("The command that lists 10,000 tagged games", list / plain, 2,
                     format("%.1f ms, of which %.1f ms for its start, against %.1f ms of plain reading", list,
                            values.at("version") / 1e6, plain));
        m_report.row("Its memory for 100,000 games, in MiB", runWith("100000").at("most-kB") / 1024, 100, "");
    }

    // Speeds against sha1sum: the limit of 0.9 times its speed is one of its time, turned round.
    void reportSums() {
        const Values values =
            run({program("bench_sums"), TORVANE_FOLDER "/torvane-tags", std::to_string(rounds)},
                m_small.configuration);
        const auto seconds = [&](const char* name) { return values.at(name) / 1e9; };
        m_report.row("The command that makes SHA-1 sums of 512 MiB", seconds("sha1") / seconds("sha1sum"),
                     1 / 0.9,
                     format("%.2f s against %.2f s of sha1sum on all processors; %.2f s for all four sums",
                            seconds("sha1"), seconds("sha1sum"), seconds("all")));
        m_report.row("The command that identifies 10,000 games", seconds("identify") / seconds("hash"), 1.1,
                     format("%.2f s with a list of 30,000 against %.2f s for the sums alone",
                            seconds("identify"), seconds("hash")));
        m_report.row("The memory of these commands, in MiB", values.at("most-kB") / 1024, 100, "");
    }

    void reportLists() {
        const Values values = run({program("bench_lists"), m_empty.configuration, std::to_string(rounds)},
                                  m_empty.configuration);
        const auto milliseconds = [&](const char* name) { return values.at(name) / 1e6; };
        m_report.row("Milliseconds to set and paint 1,000,000 rows", milliseconds("set-large"), 60,
                     format("of six columns; %.1f ms for 1,000 rows, %.1f ms for the same texts alone",
                            milliseconds("set-small"), milliseconds("plain")));
        m_report.row("Milliseconds of a page of 1,000,000 rows", milliseconds("page-large"), 8,
                     format("%.1f ms for 1,000 rows", milliseconds("page-small")));
        m_report.row("The page against the same texts alone",
                     milliseconds("page-large") / milliseconds("plain"), 2.5, "painted without any list");
        m_report.row("The page in 1,000,000 rows against 1,000",
                     milliseconds("page-large") / milliseconds("page-small"), 1.3, "");
    }

    void reportDatabase() {
        const Values values =
            run({program("bench_database"), m_empty.folder, m_empty.configuration, std::to_string(rounds)},
                m_empty.configuration);
        const auto milliseconds = [&](const char* name) { return values.at(name) / 1e6; };
        const double count = milliseconds("count-lines");
        const char* pattern = "%.1f ms to the painted list against %.1f ms of wc -l";
        m_report.row("Filtering 1,000,000 entries, one in 1,000 passes", milliseconds("rare") / count, 8,
                     format(pattern, milliseconds("rare"), count));
        m_report.row("Filtering 1,000,000 entries, all pass", milliseconds("all") / count, 8,
                     format(pattern, milliseconds("all"), count));
        m_report.row("Memory for these against the file", values.at("memory-kB") / values.at("file-kB"), 2.5,
                     format("%.1f MB for a file of %.1f MB", values.at("memory-kB") / 1024,
                            values.at("file-kB") / 1024));
        m_report.row("Milliseconds of a page of all entries", milliseconds("page"), 8,
                     "scrolled and painted");
        reportOpening("bench_opening", "The database with 10,000 entries against none");
        reportOpening("bench_weblist", "The web list with 10,000 pages against 20");
    }

    void reportOpening(const char* name, const char* what) {
        const Values values =
            run({program(name), m_empty.folder, m_empty.configuration, std::to_string(rounds)},
                m_empty.configuration);
        const double full = values.at("full") / 1e6;
        const double empty = values.at("empty") / 1e6;
        m_report.row(what, full / empty, 2,
                     format("%.1f ms from the click to the painted list against %.1f ms", full, empty));
    }

    void reportGallery() {
        const Values values =
            run({program("bench_gallery"), m_empty.folder, m_empty.configuration, std::to_string(rounds)},
                m_empty.configuration);
        const auto milliseconds = [&](const char* name) { return values.at(name) / 1e6; };
        m_report.row("The gallery of 10,000 pictures", milliseconds("gallery") / milliseconds("bare"), 3,
                     format("%.1f ms to the painted picture against %.1f ms of a bare window",
                            milliseconds("gallery"), milliseconds("bare")));
        m_report.row("A step to a JPEG of 12 megapixels", milliseconds("step") / milliseconds("decode"), 1.2,
                     format("%.1f ms to the painted picture against %.1f ms of its plain decoding",
                            milliseconds("step"), milliseconds("decode")));
        m_report.row("Memory for these steps against one picture",
                     values.at("memory-kB") / values.at("picture-kB"), 3,
                     format("%.1f MB, decoded it has %.1f MB", values.at("memory-kB") / 1024,
                            values.at("picture-kB") / 1024));
    }

    fs::path m_programs;
    Library m_empty;
    Library m_small;
    Library m_large;
    fs::path m_installed; // the program, with a tree to lay homes out from
    Report m_report;
};

int runBenchmarks() {
    try {
        const ScratchFolder scratch;
        // Qt looks for this folder, which a machine without a desktop does not have.
        setenv("XDG_RUNTIME_DIR", scratch.path().c_str(), 0);
        return Benchmarks(fs::read_symlink("/proc/self/exe").parent_path(), scratch.path()).runAll() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 3;
    }
}
} // namespace

} // namespace torvane::bench

int main() { return torvane::bench::runBenchmarks(); }
