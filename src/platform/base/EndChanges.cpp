// SPDX-License-Identifier: MIT
// Batches of files, their notes and their syncs.
#include "EndChanges.h"
#include "Arrival.h"
#include "Paths.h"

#include <algorithm>
#include <map>
#include <utility>

namespace torvane {

void EndChanges::add(const QString& path, const Decide& decide) {
    m_results.push_back({path, {}, false, {}});
    try {
        aboutFile(path, [&] { addOne(path, decide); });
    } catch (const RuntimeFailure& failure) {
        m_results.back().failure = failure;
    }
    if (m_waiting.size() == Arrival::largestBatch) place();
}

EndChanges::Results EndChanges::finish() {
    place();
    return std::exchange(m_results, {});
}

bool EndChanges::isWaiting(const struct stat& info) const {
    return std::any_of(m_waiting.begin(), m_waiting.end(),
                       [&](const Waiting& one) { return isSameFile(one.info, info); });
}

void EndChanges::addOne(const QString& path, const Decide& decide) {
    struct stat info {};
    // What this batch keeps others from opening, it can't open itself.
    if (stat(Paths::real(path).constData(), &info) == 0 && isWaiting(info)) place();
    auto file = std::make_unique<SafeFile::Change>(path, SafeFile::Change::Part::end);
    const std::optional<End> end = decide(file->file());
    if (!end) return;
    const qint64 replaced = file->length() - end->kept;
    if (std::max<qint64>(replaced, end->bytes.size()) > SafeFile::Change::largestEnd) {
        throw RuntimeFailure(RuntimeFailure::invalidCall);
    }
    Result& result = m_results.back();
    result.change = file->endChange(end->kept, end->bytes);
    if (!file->canChangeEnd(end->kept, end->bytes.size())) return replace(*file, *end);
    const struct stat held = infoOf(file->file());
    m_waiting.push_back({m_results.size() - 1, std::move(file), held});
}

// Where a file can't be changed in place, it is replaced by itself.
void EndChanges::replace(const SafeFile::Change& file, const End& end) {
    if (m_aboutToWrite) m_aboutToWrite({m_results.back()});
    file.commit(end.kept, {end.bytes});
    m_results.back().isDone = true;
}

void EndChanges::place() {
    announce();
    {
        const Notes notes = takeNotes();
        forEach([this](const Waiting& one) { one.file->writeEnd(m_results[one.result].change); });
        sync();
        if (!restoreWhatFailed()) {
            for (const auto& note : notes) note->leave();
        }
        forEach([this](const Waiting& one) {
            m_results[one.result].isDone = true;
            if (m_afterwards) m_afterwards(one.file->file(), m_results[one.result].change);
        });
    }
    m_waiting.clear();
}

void EndChanges::forEach(const std::function<void(const Waiting&)>& action) {
    for (const Waiting& one : m_waiting) {
        Result& result = m_results[one.result];
        if (result.failure) continue;
        try {
            aboutFile(result.path, [&] { action(one); });
        } catch (const RuntimeFailure& failure) {
            result.failure = failure;
        }
    }
}

void EndChanges::announce() {
    Results next;
    for (const Waiting& one : m_waiting) next.push_back(m_results[one.result]);
    if (next.empty() || !m_aboutToWrite) return;
    try {
        m_aboutToWrite(next);
    } catch (const RuntimeFailure& failure) {
        for (const Waiting& one : m_waiting) m_results[one.result].failure = failure;
    }
}

// One note in each folder. Files whose note can't be written are not changed.
EndChanges::Notes EndChanges::takeNotes() {
    std::map<std::pair<dev_t, ino_t>, std::vector<const Waiting*>> folders;
    forEach([&](const Waiting& one) {
        struct stat info {};
        if (fstat(one.file->folder().number(), &info) != 0) failWithErrno();
        folders[{info.st_dev, info.st_ino}].push_back(&one);
    });
    Notes notes;
    for (const auto& [folder, files] : folders) {
        TailNote::Changes changes;
        for (const Waiting* one : files) changes.push_back(m_results[one->result].change);
        try {
            notes.push_back(std::make_unique<TailNote>(files.front()->file->folder(), changes));
        } catch (const RuntimeFailure& failure) {
            for (const Waiting* one : files) {
                Result& result = m_results[one->result];
                result.failure = failure.about(result.path);
            }
        }
    }
    return notes;
}

bool EndChanges::areOnOneDisk() const {
    return std::all_of(m_waiting.begin(), m_waiting.end(), [this](const Waiting& one) {
        return one.info.st_dev == m_waiting.front().info.st_dev;
    });
}

bool EndChanges::syncTogether() const {
    return m_waiting.size() > Arrival::fewFiles && areOnOneDisk() &&
           m_waiting.front().file->folder().syncFileSystem();
}

// If the one sync reports an error, it does not say for which file: then each is synced by itself.
void EndChanges::sync() {
    if (!syncTogether()) forEach([](const Waiting& one) { one.file->sync(); });
}

bool EndChanges::restoreWhatFailed() const {
    bool areRestored = true;
    for (const Waiting& one : m_waiting) {
        const Result& result = m_results[one.result];
        if (result.failure) areRestored = TailNote::restore(one.file->file(), result.change) && areRestored;
    }
    return areRestored;
}

} // namespace torvane
