// SPDX-License-Identifier: MIT
// What happens to files when calls, power or processes fail. Usage: torvane_faults PART [long]
//   calls   every call of every operation fails, stops halfway or is the last one
//   power   the power fails after every call
//   others  a second program works on the same file
//   kills   (long only) 10,000 kills at random instants
// Prints violations and a table in Markdown; ends with 0 if there were none, 1 if there were, 2 if it could
// not be tried. TORVANE_FAULTS_FOLDER names a folder to work in; by default that is in memory if possible.
// TORVANE_FAULTS_OPERATIONS, a regular expression, leaves out all operations that it does not match.
#include "EveryCall.h"
#include "HomeSituations.h"
#include "OtherRounds.h"
#include "PowerLoss.h"
#include "RandomKills.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <regex>
#include <set>
#include <sys/stat.h>

namespace torvane::faults {

namespace {
constexpr qsizetype kibibyte = 1024;
constexpr qsizetype mebibyte = 1024 * kibibyte;

class Parts {
public:
    explicit Parts(bool isLong) : m_isLong(isLong) {}

    bool run(const std::string& part) {
        if (part == "calls") calls();
        if (part == "power") power();
        // Random instants are for the long form only: a short one must be reproducible.
        if (part == "others") meetOtherProgram(m_workshop, m_tally, m_isLong ? 100 : 0, !m_isLong);
        if (part == "kills") kills();
        m_tally.print(part);
        return m_tally.isClean();
    }

private:
    std::vector<Situation> situations(qsizetype size, const Standings& standings) {
        return chosen(faults::situations(m_workshop, m_parts, size, standings));
    }
    std::vector<Situation> batches(qsizetype size, const Standings& standings, bool isLarge) {
        return chosen(faults::batches(m_workshop, m_parts, size, standings, isLarge));
    }
    std::vector<Situation> homes(const Standings& standings, bool isLarge) {
        return chosen(faults::homes(m_workshop, standings, isLarge));
    }
    std::vector<Situation> chosen(std::vector<Situation> all) const {
        std::erase_if(all,
                      [this](const Situation& one) { return !std::regex_match(one.operation, m_chosen); });
        return all;
    }

    void calls() {
        Runner runner(m_workshop, m_tally);
        strikeAll(runner, 32 * kibibyte, m_isLong ? everyStanding : extremes);
        strikeBatches(runner, 4 * kibibyte, m_isLong ? everyStanding : onlyLonger, false);
        strikeBatches(runner, 4 * kibibyte, m_isLong ? extremes : onlyLonger, true);
        strikeHomes(runner, m_isLong ? everyStanding : onlyLonger, false);
        if (m_isLong) strikeHomes(runner, extremes, true);
        strikeTwo(runner);
        strikeAll(runner, m_isLong ? 8 * mebibyte : mebibyte, m_isLong ? everyStanding : onlyLonger);
        if (!m_isLong) return;
        strikeBatches(runner, 8 * mebibyte, extremes, false);
        strikeAll(runner, 32 * mebibyte, everyStanding);
    }

    void strikeTwo(Runner& runner) {
        const std::set<std::string> operations = {"StripRomTag", "AppendRomTag", "SaveRomTag"};
        const Standings& standings = m_isLong ? extremes : onlyLonger;
        for (const Situation& situation : situations(4 * kibibyte, standings)) {
            if (operations.count(situation.operation) == 0) continue;
            strikeEveryTwoCalls(runner, situation, !m_isLong);
        }
    }

    void strikeBatches(Runner& runner, qsizetype size, const Standings& standings, bool isLarge) {
        for (const Situation& situation : batches(size, standings, isLarge)) {
            runner.run(situation, {});
            strikeEveryCall(runner, situation, !m_isLong);
        }
    }

    void strikeHomes(Runner& runner, const Standings& standings, bool isLarge) {
        for (const Situation& situation : homes(standings, isLarge)) {
            runner.run(situation, {});
            strikeEveryCall(runner, situation, !m_isLong);
        }
    }

    void strikeAll(Runner& runner, qsizetype size, const Standings& standings) {
        for (const Situation& situation : situations(size, standings)) {
            if (isOnSmallFile(situation.operation) && size >= mebibyte) continue;
            runner.run(situation, {});
            strikeEveryCall(runner, situation, !m_isLong);
        }
    }

    void power() {
        const qsizetype uneven = 4 * kibibyte + 300; // so that an appended line crosses more disk blocks
        failPowerIn(situations(uneven, everyStanding), m_isLong);
        failPowerIn(situations(32 * kibibyte, m_isLong ? everyStanding : onlyLonger), false);
        failPowerIn(batches(kibibyte, m_isLong ? everyStanding : extremes, false), false);
        failPowerIn(homes(m_isLong ? everyStanding : onlyLonger, false), false);
        if (!m_isLong) return;
        failPowerAfterFaultsIn(homes(onlyLonger, false)); // several thousand states after each fault
        failPowerIn(situations(4 * kibibyte, everyStanding), false);
        failPowerIn(batches(kibibyte, extremes, true), false);
    }

    void failPowerIn(const std::vector<Situation>& all, bool alsoAfterFaults) {
        for (const Situation& situation : all) failPower(m_workshop, m_tally, situation);
        if (alsoAfterFaults) failPowerAfterFaultsIn(all);
    }
    void failPowerAfterFaultsIn(const std::vector<Situation>& all) {
        for (const Situation& situation : all) failPowerAfterFaults(m_workshop, m_tally, situation);
    }

    void kills() {
        auto all = situations(32 * kibibyte, extremes);
        for (const Situation& one : situations(8 * mebibyte, extremes)) all.push_back(one);
        for (const bool isLarge : {false, true}) {
            const auto games = batches(32 * kibibyte, extremes, isLarge);
            all.insert(all.end(), games.begin(), games.end());
            const auto trees = homes(extremes, isLarge);
            all.insert(all.end(), trees.begin(), trees.end());
        }
        killAtRandom(m_workshop, m_tally, all, 10'000);
    }

    bool m_isLong;
    Workshop m_workshop;
    ProgramParts m_parts{m_workshop};
    Tally m_tally;
    std::regex m_chosen = chosenByUser();

    static std::regex chosenByUser() {
        const char* given = std::getenv("TORVANE_FAULTS_OPERATIONS");
        return std::regex(given ? given : ".*");
    }
};
} // namespace

} // namespace torvane::faults

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    umask(022); // the expected mode of new files assumes this mask
    try {
        const bool isLong = argc > 2 && std::string(argv[2]) == "long";
        return torvane::faults::Parts(isLong).run(argv[1]) ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "torvane_faults: %s\n", failure.what());
        return 2;
    }
}
