// SPDX-License-Identifier: MIT
// The checks on the files after an operation has ended, in whatever way, and after the program's next start.
#pragma once

#include "Situation.h"

namespace torvane::faults {

/// How an operation has ended, as far as the program could tell.
enum class Told {
    success,
    failure,
    nothing, ///< it was killed, or the power failed
    nonsense ///< it ended in a way in which it must not
};

struct Ending {
    Told told = Told::nothing;
    /// A failure came behind the moment at which the new file had got its name.
    bool isFreshAllowed = false;
    /// The former end could not be put back: part of the line may stand there until the next start.
    bool isPartAllowed = false;
    /// The power failed: zeros may stand in the place of parts of the line.
    bool isPowerLost = false;
    /// The settings failed: a copy goes on without remembering the folder that is to be swept.
    bool isStrayAllowed = false;
};

class Inspection {
public:
    Inspection(const Workshop& workshop, const Situation& situation, const Ending& ending)
        : m_workshop(workshop), m_situation(situation), m_ending(ending) {}

    void beforeNextStart();
    void afterNextStart();
    /// Each a sentence; empty if all is as it should be.
    const std::vector<std::string>& violations() const { return m_violations; }

private:
    enum class Found { former, fresh, part, other };

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
