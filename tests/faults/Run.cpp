// SPDX-License-Identifier: MIT
// Running an operation in a child and judging its end.
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
                                                  "made, but told as failed",
                                                  "half",
                                                  "fails from now on",
                                                  "killed before",
                                                  "killed halfway",
                                                  "killed after",
                                                  "met"};
    const std::string error = strike.error != 0 ? std::string(" ") + strerrorname_np(strike.error) : "";
    return names.at(static_cast<size_t>(strike.fault)) + error + " at " + std::to_string(strike.at);
}

// A sync that failed has to be told: the content may never reach the disk. Where a copy goes is noted among
// the settings as well as may be, and no reason not to copy.
bool isHiddenFailure(const Plan& plan, const Situation& situation, Told told) {
    const Strike& strike = plan.strikes[0];
    const bool isError = strike.isStruck() && strike.fault != Fault::half && strike.error != EINTR;
    const bool isAside = situation.subject != settingsFile && strstr(plan.struckName.data(), "/config");
    if (told != Told::success || !isError) return false;
    // Of a sync of all that failed each game has to be asked by itself, and then the folder.
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

Ending endingOf(const Plan& plan, Told told) {
    const bool isSecondStruck = plan.strikes[1].isStruck();
    const bool lasts = plan.strikes[0].fault == Fault::fromNowOn && plan.strikes[0].isStruck();
    return {.told = told,
            .isFreshAllowed = plan.exchangedAt > 0 && plan.struckAt >= plan.exchangedAt,
            .isPartAllowed = told == Told::nothing || isSecondStruck || lasts};
}

std::vector<std::string> Runner::violationsAfter(const Situation& situation, Told told) {
    Inspection inspection(m_workshop, situation, endingOf(*m_plan, told));
    inspection.beforeNextStart();
    startNext(m_workshop);
    inspection.afterNextStart();
    std::vector<std::string> violations = inspection.violations();
    if (isHiddenFailure(*m_plan, situation, told)) violations.emplace_back("a failed sync was not told");
    const Told expected = situation.fresh ? Told::success : Told::failure;
    if (m_plan->struckAt == 0 && told != expected)
        violations.emplace_back("without a fault it ended otherwise");
    return violations;
}

const Plan& Runner::run(const Situation& situation, const Strike& first, const Strike& second) {
    *m_plan = {};
    m_plan->strikes = {first, second};
    std::snprintf(m_plan->subject.data(), m_plan->subject.size(), "%s",
                  m_workshop.path(situation.subject).c_str());
    m_workshop.layOut(situation.before);
    const Told told = toldBy(startChild([&] { runAndEnd(situation, [this] { arm(*m_plan); }); }));
    const auto violations = violationsAfter(situation, told);
    m_tally.add(situation.operation, told == Told::nothing, violations,
                situation.name() + ", " + describe(*m_plan));
    return *m_plan;
}

} // namespace torvane::faults
