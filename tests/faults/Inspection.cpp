// SPDX-License-Identifier: MIT
// The individual checks.
#include "Inspection.h"

#include <algorithm>

namespace torvane::faults {

void Inspection::check(bool isGood, const std::string& otherwise) {
    if (!isGood) m_violations.push_back(otherwise);
}

bool Inspection::holds(const std::string& path, const Content& content) const {
    return content ? m_workshop.holds(path, *content) : !m_workshop.lengthOf(path);
}

// Whether only the end that is changed in place differs, and is a mixture of the old and the new one.
bool Inspection::isPart() const {
    if (!m_situation.end || !m_situation.old || !m_situation.fresh) return false;
    const QByteArray image = m_situation.old->first(*m_situation.end);
    if (!m_workshop.beginsWith(m_situation.subject, image)) return false;
    const QByteArray found = m_workshop.read(m_situation.subject, image.size());
    const QByteArray old = m_situation.old->sliced(image.size());
    const QByteArray fresh = m_situation.fresh->sliced(image.size());
    const auto isFrom = [&found](const QByteArray& end, qsizetype i) {
        return i < end.size() && end[i] == found[i];
    };
    for (qsizetype i = 0; i < found.size(); ++i) {
        const bool isZero = m_ending.isPowerLost && found[i] == '\0';
        if (!isFrom(old, i) && !isFrom(fresh, i) && !isZero) return false;
    }
    return found.size() >= std::min(old.size(), fresh.size()) &&
           found.size() <= std::max(old.size(), fresh.size());
}

Inspection::Found Inspection::found() const {
    if (holds(m_situation.subject, m_situation.old)) return Found::old;
    if (m_situation.fresh && holds(m_situation.subject, m_situation.fresh)) return Found::fresh;
    return isPart() ? Found::part : Found::other;
}

void Inspection::checkSubject(Found found) {
    check(found != Found::other, "the file is neither the old nor the new one");
    switch (m_ending.outcome) {
    case Outcome::success:
        return check(found == Found::fresh, "success was reported, but the file is not the new one");
    case Outcome::failure:
        // If the old end could not be restored, the new one may even be complete.
        check(found != Found::fresh || m_ending.isFreshAllowed || m_situation.isBatch ||
                  (m_ending.isPartAllowed && m_situation.end),
              "a failure was reported, but the file is the new one");
        return check(found != Found::part || m_ending.isPartAllowed, "a part of the new end was left behind");
    case Outcome::unreported: return;
    case Outcome::invalid: return check(false, "the program ended in a forbidden way");
    }
}

void Inspection::beforeNextStart() {
    m_before = found();
    checkSubject(m_before);
    checkAsides(false);
    checkBystanders();
    checkTreasures();
}

void Inspection::afterNextStart() {
    const Found now = found();
    check(now == Found::old || now == Found::fresh, "after the next start the file is neither old nor new");
    const bool wasWhole = m_before == Found::old || m_before == Found::fresh;
    if (m_situation.resume) {
        check(now == Found::fresh, "the next start did not complete the operation");
    } else {
        check(!wasWhole || now == m_before, "the next start changed a whole file");
    }
    check(m_ending.outcome != Outcome::success || now == Found::fresh,
          "the next start undid what was reported as done");
    checkAsides(true);
    checkBystanders();
    checkNames();
    checkRights();
    checkTreasures();
}

bool Inspection::isAny(const std::vector<Content>& allowed, const std::string& path) const {
    return std::any_of(allowed.begin(), allowed.end(), [&](const Content& one) { return holds(path, one); });
}

void Inspection::checkAsides(bool afterNextStart) {
    for (const auto& [path, aside] : m_situation.asides) {
        if (aside.isFreeMeanwhile && !afterNextStart) continue;
        const auto& allowed = afterNextStart ? aside.afterNextStart : aside.meanwhile;
        check(isAny(allowed, path), path + " holds something else");
        if (m_ending.outcome != Outcome::success || aside.whenDone.empty()) continue;
        check(isAny(aside.whenDone, path), "success was reported, but it was not done to " + path);
    }
}

void Inspection::checkBystanders() {
    for (const auto& [path, state] : m_situation.before) {
        if (path == m_situation.subject || m_situation.asides.count(path) > 0) continue;
        check(m_workshop.holds(path, state.bytes), path + " was changed, too");
        check(m_workshop.rightsOf(path) == state.rights, path + " has got other rights");
    }
}

void Inspection::checkNames() {
    for (const std::string& name : m_workshop.names()) {
        const bool isForgotten = m_ending.isStrayAllowed && name.rfind("elsewhere/.torvane-", 0) == 0;
        const bool isExpected = isForgotten || name == m_situation.subject ||
                                m_situation.before.count(name) > 0 || m_situation.asides.count(name) > 0;
        check(isExpected, "a stray file stays: " + name);
    }
}

void Inspection::checkRights() {
    if (!m_workshop.lengthOf(m_situation.subject)) return;
    const auto old = m_situation.before.find(m_situation.subject);
    const Rights expected = old == m_situation.before.end() ? Rights() : old->second.rights;
    check(m_workshop.rightsOf(m_situation.subject) == expected, "the file has got other rights");
}

void Inspection::checkTreasures() {
    for (const auto& [bytes, places] : m_situation.treasures) {
        const bool isKept =
            std::any_of(places.begin(), places.end(),
                        [&, &content = bytes](const auto& path) { return m_workshop.holds(path, content); });
        check(isKept, "what must not get lost is neither in " + places.front() + " nor elsewhere");
    }
}

} // namespace torvane::faults
