// SPDX-License-Identifier: MIT
// A working child, and a parent that kills it.
#include "RandomKills.h"
#include "Child.h"
#include "Shared.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <random>
#include <sched.h>

namespace torvane::faults {

namespace {
using Clock = std::chrono::steady_clock;
using Duration = Clock::duration;

class Killer {
public:
    Killer(Workshop& workshop, const Situation& situation) : m_workshop(workshop), m_situation(situation) {}

    /// The outcome of the operation when it is killed after that time, unless it ended before.
    Outcome runFor(Duration time) {
        const pid_t child = start();
        for (const auto end = Clock::now() + time; Clock::now() < end;) sched_yield();
        kill(child, SIGKILL);
        return outcomeOf(child);
    }
    /// The duration of one run that is not killed.
    Duration measured() {
        const pid_t child = start();
        const auto begun = Clock::now();
        outcomeOf(child);
        return Clock::now() - begun;
    }

private:
    pid_t start() {
        m_workshop.layOut(m_situation.before);
        *m_hasBegun = false;
        const pid_t child = startChild([this] { runAndEnd(m_situation, [this] { *m_hasBegun = true; }); });
        while (!*m_hasBegun) sched_yield();
        return child;
    }

    Workshop& m_workshop;
    const Situation& m_situation;
    Shared<std::atomic<bool>> m_hasBegun;
};

// The range of instants converges to twice the duration of a run, however busy the machine is: kills are
// spread over the whole run, and half of them come too late.
Duration longer(Duration range) { return range * 51 / 50 + std::chrono::microseconds(1); }
Duration shorter(Duration range) { return range * 49 / 50; }

std::vector<std::string> violationsAfter(Workshop& workshop, const Situation& situation, Outcome outcome) {
    Inspection inspection(workshop, situation, {.outcome = outcome});
    inspection.beforeNextStart();
    startNext(workshop, situation);
    inspection.afterNextStart();
    return inspection.violations();
}
} // namespace

void killAtRandom(Workshop& workshop, Tally& tally, const std::vector<Situation>& situations, int kills) {
    std::mt19937 random(11);
    std::vector<Duration> durations;
    durations.reserve(situations.size());
    for (const Situation& situation : situations) durations.push_back(Killer(workshop, situation).measured());
    for (int done = 0; done < kills;) {
        for (size_t i = 0; i < situations.size() && done < kills; ++i) {
            const Duration time(
                std::uniform_int_distribution<Duration::rep>(0, durations[i].count())(random));
            const Outcome outcome = Killer(workshop, situations[i]).runFor(time);
            tally.add(situations[i].operation, outcome == Outcome::unreported,
                      violationsAfter(workshop, situations[i], outcome),
                      situations[i].name() + ", killed at random");
            if (outcome == Outcome::unreported) ++done;
            durations[i] = outcome == Outcome::unreported ? longer(durations[i]) : shorter(durations[i]);
        }
    }
}

} // namespace torvane::faults
