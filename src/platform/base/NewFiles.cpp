// SPDX-License-Identifier: MIT
// Batches of new files and their syncs.
#include "NewFiles.h"
#include "Paths.h"
#include "SharedSync.h"

#include <map>
#include <utility>

namespace torvane {

void NewFiles::add(const QByteArray& path, QByteArrayView bytes, mode_t mode) {
    m_results.push_back({path, false, {}});
    try {
        write(path, bytes, mode);
    } catch (const RuntimeFailure& failure) {
        // It names the file, even if its folder is at fault.
        const RuntimeFailure aboutThis(failure.number(), failure.reason());
        m_results.back().failure = aboutThis.about(Paths::spelled(path));
    }
    if (m_waiting.size() == Arrival::largestBatch) place();
}

void NewFiles::write(const QByteArray& path, QByteArrayView bytes, mode_t mode) {
    // A link of that name is not followed: it is in the way, like any other file.
    const qsizetype slash = path.lastIndexOf('/');
    const Place place{path.first(slash), path.sliced(slash + 1)};
    Folder::make(place.folder);
    auto arrival = std::make_unique<Arrival>(place);
    arrival->fresh().write(bytes);
    // A file system without modes has nothing to preserve.
    if (fchmod(arrival->fresh().handle().number(), mode) != 0 && errno != ENOSYS && errno != ENOTSUP) {
        failWithErrno();
    }
    m_waiting.push_back({m_results.size() - 1, std::move(arrival)});
}

std::vector<NewFiles::Result> NewFiles::finish() {
    place();
    return std::exchange(m_results, {});
}

void NewFiles::place() {
    sync();
    rename();
    syncFolders();
    m_waiting.clear();
}

void NewFiles::forEach(const std::function<bool(Waiting&)>& action) {
    std::vector<Waiting> left;
    for (Waiting& one : m_waiting) {
        Result& result = m_results[one.result];
        try {
            if (aboutFile(Paths::spelled(result.path), [&] { return action(one); })) {
                left.push_back(std::move(one));
            }
        } catch (const RuntimeFailure& failure) {
            result.failure = failure;
        }
    }
    m_waiting = std::move(left);
}

void NewFiles::sync() {
    const auto diskOf = [](const Waiting& one) { return infoOf(one.arrival->fresh().handle()).st_dev; };
    const auto folderOf = [](const Waiting& one) -> const Folder& { return one.arrival->folder(); };
    bool isSynced = false;
    ignoring([&] { isSynced = syncTogether(m_waiting, diskOf, folderOf); });
    if (isSynced) return;
    forEach([](Waiting& one) {
        one.arrival->fresh().sync();
        return true;
    });
}

void NewFiles::rename() {
    forEach([](Waiting& one) { return one.arrival->renameIfFree(); });
}

void NewFiles::syncFolders() {
    std::map<QByteArray, std::optional<RuntimeFailure>> done;
    for (Waiting& one : m_waiting) {
        const QByteArray& folder = one.arrival->place().folder;
        if (done.count(folder) > 0) continue;
        auto& failure = done[folder];
        try {
            aboutFile(Paths::spelled(folder), [&] { one.arrival->folder().sync(); });
        } catch (const RuntimeFailure& failed) {
            failure = failed;
        }
    }
    for (const Waiting& one : m_waiting) {
        Result& result = m_results[one.result];
        const auto& failure = done.at(one.arrival->place().folder);
        result.isPlaced = !failure;
        if (failure) result.failure.emplace(*failure);
    }
}

} // namespace torvane
