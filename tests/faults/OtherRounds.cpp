// SPDX-License-Identifier: MIT
// The rounds, and the checks after each.
#include "OtherRounds.h"
#include "FaultyCalls.h"
#include "Shelf.h"
#include "TagBytes.h"
#include "platform/base/RuntimeFailure.h"

#include <algorithm>
#include <chrono>
#include <numeric>
#include <random>

namespace torvane::faults {

namespace {
const std::string awayFile = "elsewhere/away.gb";
constexpr int letPass = 3;        // ms: the other program may be blocked until we have ended
constexpr int longestWait = 5000; // ms: after that it counts as blocked for ever
constexpr int mostMeetings = 500;

struct Operation {
    std::string name;
    QByteArray game;
    std::vector<QByteArray> versions;
    Transform expected;
    std::function<void(ProgramParts&, const QString&)> run;
    bool keepsOld = false;
};

QByteArray tagged(qsizetype size, quint64 seed) {
    return TagBytes::image(size, seed) + TagBytes::line(size, "Other", 200);
}

std::vector<Operation> operations() {
    const std::vector<QByteArray> withTags = {tagged(20000, 2), tagged(20900, 3)};
    const std::vector<QByteArray> without = {TagBytes::image(20000, 5), TagBytes::image(20300, 6)};
    const auto save = [](ProgramParts& parts, const QString& path) { parts.id3.SaveRomTag(path, [] {}); };
    const auto strip = [](ProgramParts&, const QString& path) { ID3::StripRomTag(path); };
    const auto replace = [](ProgramParts& parts, const QString& path) {
        const ID3& id3 = parts.id3;
        parts.id3.ReplaceRomTag(path, id3.NewTitle, id3.NewCompany, id3.NewDate, id3.NewInfo);
    };
    return {
        {"SaveRomTag", tagged(20000, 1), withTags, TagBytes::saved, save},
        {"SaveRomTag without a tag", TagBytes::image(20000, 4), without, TagBytes::saved, save},
        {"SaveRomTag, a tag appears meanwhile", TagBytes::image(20000, 4), withTags, TagBytes::saved, save},
        {"SaveRomTag, the tag is removed meanwhile", tagged(20000, 1), without, TagBytes::saved, save},
        {"StripRomTag", tagged(20000, 1), withTags, TagBytes::stripped, strip},
        {"ReplaceRomTag", tagged(20000, 1), withTags, TagBytes::replaced, replace, true}};
}

// The deeds to try, in all pairs or singly. The two halves of a rewrite belong together.
std::vector<Deeds> allDeeds(bool pairs) {
    const std::array<Deed, 5> single = {Deed::rewrite, Deed::rewriteFromZero, Deed::renameAway, Deed::replace,
                                        Deed::remove};
    std::vector<Deeds> all;
    for (const Deed first : single) {
        if (!pairs) all.push_back({{{{first, 0}, {}}}, 1});
        for (const Deed second : single) {
            if (pairs) all.push_back({{{{first, 0}, {second, 1}}}, 2});
        }
    }
    for (const Deed first : {Deed::beginRewriting, Deed::beginFromZero})
        if (pairs) all.push_back({{{{first, 0}, {Deed::endRewriting, 0}}}, 2});
    return all;
}

OtherProgram* present = nullptr;

void meetPresent(int index) {
    present->let(index + 1);
    present->waitFor(index + 1, letPass);
}

class Rounds {
public:
    Rounds(Workshop& workshop, Tally& tally, const Operation& operation)
        : m_workshop(workshop), m_tally(tally), m_operation(operation), m_parts(workshop),
          m_other(workshop.path(gameFile), workshop.path(awayFile), operation.versions) {
        m_before[gameFile] = {operation.game, {}};
        m_before["elsewhere/other.txt"] = {"kept", {}};
        present = &m_other;
    }

    /// Lets the first deed happen before `call`, and the second `later` calls after it. False if the
    /// operation makes fewer calls.
    bool meetAt(Deeds deeds, int call, int later) {
        Plan plan;
        plan.meeting = meetPresent;
        plan.strikes[0] = {.fault = Fault::meet, .at = call};
        if (deeds.count > 1) plan.strikes[1] = {.fault = Fault::meet, .at = later};
        prepare(deeds);
        arm(plan);
        const bool isSuccess = ignoring([this] { m_operation.run(m_parts, m_parts.spelled(gameFile)); });
        disarm();
        if (!plan.strikes[0].isStruck()) return false;
        // The end of a rewrite has to happen, even long after our operation has ended.
        const bool isRest = deeds.errands[1].deed == Deed::endRewriting;
        if (deeds.count > 1 && !plan.strikes[1].isStruck() && !isRest) deeds.count = 1;
        judge(deeds, isSuccess,
              "at call " + std::to_string(call) + " and " + std::to_string(later) + " later");
        return deeds.count < 2 || plan.strikes[1].isStruck();
    }

    /// Both programs start at once; the other one acts after a random time.
    void meetAtRandom(Deeds deeds, std::mt19937& random) {
        for (Errand& errand : deeds.errands)
            errand.delayMicroseconds = std::uniform_int_distribution<int>(0, m_duration)(random);
        prepare(deeds);
        const auto begun = std::chrono::steady_clock::now();
        m_other.let(deeds.count);
        const bool isSuccess = ignoring([this] { m_operation.run(m_parts, m_parts.spelled(gameFile)); });
        const auto time = std::chrono::steady_clock::now() - begun;
        judge(deeds, isSuccess, "at random");
        using std::chrono::microseconds;
        if (isSuccess) m_duration = static_cast<int>(std::chrono::duration_cast<microseconds>(time).count());
    }

private:
    void prepare(const Deeds& deeds) {
        m_workshop.layOut(m_before);
        m_other.prepare(deeds.errands);
    }

    void judge(const Deeds& deeds, bool isSuccess, const std::string& when) {
        std::vector<std::string> violations;
        m_other.let(deeds.count);
        if (!m_other.waitFor(deeds.count, longestWait))
            violations.emplace_back("the other program is held up");
        const auto all =
            possible(m_operation.game, deeds, m_operation.versions, m_operation.expected, isSuccess);
        const bool isOne = std::any_of(all.begin(), all.end(),
                                       [&](const Shelf& shelf) { return isFound(shelf, isSuccess); });
        const std::string reported = isSuccess ? "success" : "failure";
        if (!isOne) violations.push_back(reported + " was reported, but the files differ: " + found());
        for (const std::string& name : m_workshop.names()) {
            if (name.find(".torvane-") != std::string::npos)
                violations.push_back("a stray file stays: " + name);
        }
        std::string words = m_operation.name + ", the other program ";
        for (int i = 0; i < deeds.count; ++i)
            words += std::string(i > 0 ? ", " : "") + nameOf(deeds.errands.at(static_cast<size_t>(i)).deed);
        m_tally.add(m_operation.name, false, violations, words + " " + when);
    }

    bool isFound(const Shelf& shelf, bool isSuccess) const {
        const auto holds = [this](const std::string& path, const Content& content) {
            return content ? m_workshop.holds(path, *content) : !m_workshop.lengthOf(path);
        };
        // A backup may exist even if the operation failed later.
        const bool isKept = !m_operation.keepsOld || !isSuccess || holds(backupFile, shelf.backup);
        return holds(gameFile, shelf.game) && holds(awayFile, shelf.away) && isKept;
    }

    std::string found() const {
        std::string words;
        for (const std::string& name : m_workshop.names())
            words += name + " " + std::to_string(*m_workshop.lengthOf(name)) + " bytes; ";
        return words;
    }

    Workshop& m_workshop;
    Tally& m_tally;
    const Operation& m_operation;
    ProgramParts m_parts;
    OtherProgram m_other;
    Tree m_before;
    int m_duration = 500; // microseconds
};
// How many calls may lie between two deeds, in ascending order.
std::vector<int> distances(bool isOneRewrite, bool brief) {
    if (brief && isOneRewrite) return {1, 2, 3, 5, 8, 12, 18, 24};
    if (brief) return {1};
    std::vector<int> all(isOneRewrite ? 24 : 8);
    std::iota(all.begin(), all.end(), 1);
    return all;
}

// The two deeds before all pairs of calls that are so far apart.
void meetInPairs(Rounds& meeting, const Deeds& deeds, const std::vector<int>& distances) {
    bool isMet = true;
    for (int call = 1; isMet && call < mostMeetings; ++call) {
        isMet = false;
        for (const int later : distances) {
            if (!meeting.meetAt(deeds, call, later)) break;
            isMet = true;
        }
    }
}
} // namespace

void meetOtherProgram(Workshop& workshop, Tally& tally, int rounds, bool brief) {
    std::mt19937 random(31);
    for (const Operation& operation : operations()) {
        Rounds meeting(workshop, tally, operation);
        for (const Deeds& deeds : allDeeds(false)) {
            for (int call = 1; meeting.meetAt(deeds, call, 0);) ++call;
            for (int i = 0; i < rounds; ++i) meeting.meetAtRandom(deeds, random);
        }
        for (const Deeds& deeds : allDeeds(true)) {
            // All of our own work may happen between the halves of a rewrite.
            const bool isOneRewrite = deeds.errands[1].deed == Deed::endRewriting;
            meetInPairs(meeting, deeds, distances(isOneRewrite, brief));
            for (int i = 0; i < rounds; ++i) meeting.meetAtRandom(deeds, random);
        }
    }
}

} // namespace torvane::faults
