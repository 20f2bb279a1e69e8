// SPDX-License-Identifier: MIT
// Faults by game.
#include "UndoFaults.h"
#include "platform/base/Folder.h"
#include "platform/base/Paths.h"

namespace torvane {

QByteArray UndoFaults::nameOf(const QByteArray& path) {
    QByteArray name = path;
    ignoring([&] {
        const Place place = placeOf(path);
        name = place.folder + '/' + place.name;
    });
    return name;
}

void UndoFaults::add(const UndoLog::Place& change, const QByteArray& game, const RuntimeFailure& failure) {
    Fault& fault = m_games.try_emplace(nameOf(game), Fault{{}, game, failure}).first->second;
    fault.changes.push_back(change);
    fault.failure = failure;
}

void UndoFaults::clear(const QByteArray& game) {
    if (!m_games.empty()) m_games.erase(nameOf(game));
}

std::set<UndoLog::Place> UndoFaults::changes() const {
    std::set<UndoLog::Place> all;
    for (const auto& [name, fault] : m_games) all.insert(fault.changes.begin(), fault.changes.end());
    return all;
}

void UndoFaults::report(Reports& reports) const {
    for (const auto& [name, fault] : m_games) {
        const RuntimeFailure& failure = fault.failure;
        if (failure.reason() == RuntimeFailure::Reason::changed) {
            reports.fault(fault.path, "it was changed after the last run");
        } else {
            reports.fault(fault.path, Paths::spelled(fault.path), failure);
        }
    }
}

} // namespace torvane
