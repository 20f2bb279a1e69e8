// SPDX-License-Identifier: MIT
// One run of an operation with faults in it, and the checks on what it leaves.
#pragma once

#include "FaultyCalls.h"
#include "Inspection.h"
#include "Shared.h"
#include "Tally.h"

namespace torvane::faults {

/// The strikes of a plan and what they hit, for people.
std::string describe(const Plan& plan);
/// What the end of a run may look like that was struck so.
Ending endingOf(const Plan& plan, Told told);

class Runner {
public:
    Runner(Workshop& workshop, Tally& tally) : m_workshop(workshop), m_tally(tally) {}

    /// Lays out the files, runs the operation in a child with these strikes, and checks. The plan shows what
    /// came of it. Without strikes any deviation is a violation, too.
    const Plan& run(const Situation& situation, const Strike& first, const Strike& second = {});

private:
    std::vector<std::string> violationsAfter(const Situation& situation, Told told);

    Workshop& m_workshop;
    Tally& m_tally;
    Shared<Plan> m_plan;
};

} // namespace torvane::faults
