// SPDX-License-Identifier: MIT
// Running an operation in a child and judging its outcome.
#include "Run.h"
#include "Child.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace torvane::faults {

namespace {
std::string describe(const Strike& strike) {
    constexpr std::array<const char*, 9> names = {"no fault",
                                                  "fails",
                                                  "made, but reported as failed",
                                                  "half",
                                                  "fails from now on",
                                                  "killed before",
                                                  "killed halfway",
                                                  "killed after",
                                                  "met"};
    const std::string error = strike.error != 0 ? std::string(" ") + strerrorname_np(strike.error) : "";
    return names.at(static_cast<size_t>(strike.fault)) + error + " at " + std::to_string(strike.at);
}

// A failed sync must be reported, because the content may never be on the disk. The exception is the record
// of a copy's folder in the settings: if it can't be written, the copy is made all the same.
bool isHiddenFailure(const Plan& plan, const Situation& situation, Outcome outcome) {
    const Strike& strike = plan.strikes[0];
    const bool isError = strike.isStruck() && strike.fault != Fault::half && strike.error != EINTR;
    const bool isAside = situation.subject != settingsFile && strstr(plan.struckName.data(), "/config");
    if (outcome != Outcome::success || !isError) return false;
    // After a failed sync of the whole file system, each game must be synced by itself, and then the folder.
    const auto games = static_cast<int>(situation.treasures.size());
    if (plan.struckCall == Call::syncAll) return plan.syncs <= games;
    return plan.struckCall == Call::sync && !isAside;
}
} // namespace

std::string describe(const Plan& plan) {
    std::string text = describe(plan.strikes[0]);
    if (plan.strikes[1].fault != Fault::none) text += ", then " + describe(plan.strikes[1]);
    return text + " (" + nameOf(plan.struckCall) + " " + plan.struckName.data() + ")";
}

Ending endingOf(const Plan& plan, Outcome outcome) {
    const bool isSecondStruck = plan.strikes[1].isStruck();
    const bool lasts = plan.strikes[0].fault == Fault::fromNowOn && plan.strikes[0].isStruck();
    return {.outcome = outcome,
            .isFreshAllowed = plan.exchangedAt > 0 && plan.struckAt >= plan.exchangedAt,
            .isPartAllowed = outcome == Outcome::unreported || isSecondStruck || lasts};
}

std::vector<std::string> Runner::violationsAfter(const Situation& situation, Outcome outcome) {
    Inspection inspection(m_workshop, situation, endingOf(*m_plan, outcome));
    inspection.beforeNextStart();
    startNext(m_workshop, situation);
    inspection.afterNextStart();
    std::vector<std::string> violations = inspection.violations();
    if (isHiddenFailure(*m_plan, situation, outcome))
        violations.emplace_back("a failed sync was not reported");
    const Outcome expected = situation.fresh ? Outcome::success : Outcome::failure;
    if (m_plan->struckAt == 0 && outcome != expected)
        violations.emplace_back("without a fault it ended otherwise");
    return violations;
}

const Plan& Runner::run(const Situation& situation, const Strike& first, const Strike& second) {
    *m_plan = {};
    m_plan->strikes = {first, second};
    std::snprintf(m_plan->subject.data(), m_plan->subject.size(), "%s",
                  m_workshop.path(situation.subject).c_str());
    m_workshop.layOut(situation.before);
    const Outcome outcome = outcomeOf(startChild([&] { runAndEnd(situation, [this] { arm(*m_plan); }); }));
    const auto violations = violationsAfter(situation, outcome);
    m_tally.add(situation.operation, outcome == Outcome::unreported, violations,
                situation.name() + ", " + describe(*m_plan));
    return *m_plan;
}

} // namespace torvane::faults
