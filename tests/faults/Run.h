// SPDX-License-Identifier: MIT
// One run of an operation with injected faults, and the checks on its result.
#pragma once

#include "FaultyCalls.h"
#include "Inspection.h"
#include "Shared.h"
#include "Tally.h"

namespace torvane::faults {

/// A readable description of a plan's strikes and what they hit.
std::string describe(const Plan& plan);
/// The permitted end of a run that was struck by this plan.
Ending endingOf(const Plan& plan, Outcome outcome);

class Runner {
public:
    Runner(Workshop& workshop, Tally& tally) : m_workshop(workshop), m_tally(tally) {}

    /// Lays out the files, runs the operation in a child with these strikes, and checks the result. The
    /// returned plan shows what was struck. Without strikes any deviation is a violation, too.
    const Plan& run(const Situation& situation, const Strike& first, const Strike& second = {});

private:
    std::vector<std::string> violationsAfter(const Situation& situation, Outcome outcome);

    Workshop& m_workshop;
    Tally& m_tally;
    Shared<Plan> m_plan;
};

} // namespace torvane::faults
