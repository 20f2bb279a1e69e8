// SPDX-License-Identifier: MIT
// Recording an operation, laying out disk states, and checking what the next start makes of them.
#include "PowerLoss.h"
#include "DiskStates.h"
#include "platform/base/RuntimeFailure.h"

#include <QCryptographicHash>
#include <cerrno>
#include <cstdio>
#include <set>

namespace torvane::faults {

namespace {
QByteArray hashOf(const Tree& tree) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const auto& [path, state] : tree) {
        const Rights& rights = state.rights;
        hash.addData(QByteArray::fromStdString(path) + '\n');
        hash.addData(QByteArray::number(state.bytes.size()) + ' ' + QByteArray::number(rights.mode) + ' ' +
                     QByteArray::number(rights.owner) + ' ' + QByteArray::number(rights.group) + '\n');
        hash.addData(state.bytes);
    }
    return hash.result();
}

class Recorded {
public:
    Recorded(Workshop& workshop, Tally& tally, const Situation& situation, const Strike& strike)
        : m_workshop(workshop), m_tally(tally), m_situation(situation), m_disk(laidOut(workshop, situation)) {
        m_plan.strikes[0] = strike;
        std::snprintf(m_plan.subject.data(), m_plan.subject.size(), "%s",
                      workshop.path(situation.subject).c_str());
        startRecording();
        arm(m_plan);
        m_outcome = ignoring(situation.run) ? Outcome::success : Outcome::failure;
        disarm();
        m_steps = takeRecorded();
    }

    bool isStruck() const { return m_plan.strikes[0].isStruck(); }

    void check() {
        checkStates(Outcome::unreported, "the power failed before the first step");
        for (size_t i = 0; i < m_steps.size(); ++i) {
            m_disk.play(m_steps[i]);
            checkStates(Outcome::unreported, "the power failed after step " + std::to_string(i + 1) + " of " +
                                                 std::to_string(m_steps.size()));
        }
        m_known.clear();
        if (m_outcome == Outcome::success) checkStates(m_outcome, "the power failed after the end");
        m_tally.addStates(m_situation.operation, m_states);
    }

private:
    static Disk laidOut(Workshop& workshop, const Situation& situation) {
        workshop.layOut({});
        workshop.layOut(situation.before);
        return Disk(workshop);
    }

    bool haveSettingsFailed() const {
        const std::string folder = m_workshop.path("config");
        return isStruck() && std::string(m_plan.struckName.data()).rfind(folder, 0) == 0;
    }

    void checkStates(Outcome outcome, const std::string& when) {
        std::vector<std::string> violations;
        forEachState(m_disk, [&](const Tree& tree) {
            if (!m_known.insert(hashOf(tree)).second) return;
            ++m_states;
            m_workshop.layOut(tree);
            Inspection inspection(
                m_workshop, m_situation,
                {.outcome = outcome, .isPowerLost = true, .isStrayAllowed = haveSettingsFailed()});
            inspection.beforeNextStart();
            startNext(m_workshop, m_situation);
            inspection.afterNextStart();
            const auto& found = inspection.violations();
            violations.insert(violations.end(), found.begin(), found.end());
        });
        m_tally.add(m_situation.operation, false, violations,
                    m_situation.name() + ", " + (isStruck() ? describe(m_plan) + ", " : "") + when);
    }

    Workshop& m_workshop;
    Tally& m_tally;
    const Situation& m_situation;
    Disk m_disk;
    Plan m_plan;
    Outcome m_outcome = Outcome::invalid;
    std::vector<Step> m_steps;
    std::set<QByteArray> m_known;
    long m_states = 0;
};
} // namespace

void failPower(Workshop& workshop, Tally& tally, const Situation& situation) {
    Recorded(workshop, tally, situation, {}).check();
}

void failPowerAfterFaults(Workshop& workshop, Tally& tally, const Situation& situation) {
    for (int call = 1;; ++call) {
        Recorded recorded(workshop, tally, situation, {.fault = Fault::error, .error = EIO, .at = call});
        if (!recorded.isStruck()) return;
        recorded.check();
    }
}

} // namespace torvane::faults
