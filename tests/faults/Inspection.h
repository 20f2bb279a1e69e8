// SPDX-License-Identifier: MIT
// The checks on the files after an operation has ended in any way, and after the program's next start.
#pragma once

#include "Situation.h"

namespace torvane::faults {

/// The outcome of an operation, as far as the program could report it.
enum class Outcome {
    success,
    failure,
    unreported, ///< the process was killed, or the power failed
    invalid     ///< the process ended in a forbidden way
};

struct Ending {
    Outcome outcome = Outcome::unreported;
    /// The failure came after the new file had got its name.
    bool isFreshAllowed = false;
    /// The old end could not be restored: part of the new one may remain until the next start.
    bool isPartAllowed = false;
    /// The power failed: zeros may replace parts of the end that is changed in place.
    bool isPowerLost = false;
    /// The settings failed: a copy is made without recording its folder, which a later start then can't
    /// sweep.
    bool isStrayAllowed = false;
};

class Inspection {
public:
    Inspection(const Workshop& workshop, const Situation& situation, const Ending& ending)
        : m_workshop(workshop), m_situation(situation), m_ending(ending) {}

    void beforeNextStart();
    void afterNextStart();
    /// One sentence for each violation; empty if there is none.
    const std::vector<std::string>& violations() const { return m_violations; }

private:
    enum class Found { old, fresh, part, other };

    Found found() const;
    bool isPart() const;
    void check(bool isGood, const std::string& otherwise);
    void checkSubject(Found found);
    void checkAsides(bool afterNextStart);
    void checkBystanders();
    void checkNames();
    void checkRights();
    void checkTreasures();
    bool isAny(const std::vector<Content>& allowed, const std::string& path) const;
    bool holds(const std::string& path, const Content& content) const;

    const Workshop& m_workshop;
    const Situation& m_situation;
    Ending m_ending;
    Found m_before = Found::other;
    std::vector<std::string> m_violations;
};

} // namespace torvane::faults
