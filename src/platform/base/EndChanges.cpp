// SPDX-License-Identifier: MIT
// Batches of files, their notes and their syncs.
#include "EndChanges.h"
#include "Arrival.h"
#include "Parallel.h"
#include "Paths.h"
#include "SharedSync.h"

#include <algorithm>
#include <map>
#include <utility>

namespace torvane {

void EndChanges::add(const QString& path, const Decide& decide) {
    struct stat info {};
    // What this batch keeps others from opening, it can't open a second time.
    if (stat(Paths::real(path).constData(), &info) == 0 && isWaiting(info)) place();
    m_results.push_back({path, {}, false, {}});
    m_waiting.push_back({m_results.size() - 1, info, decide});
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

// Runs on any thread.
void EndChanges::prepare(Waiting& one) {
    Result& result = m_results[one.result];
    try {
        aboutFile(result.path, [&] {
            one.file =
                std::make_unique<SafeFile::Change>(result.path, SafeFile::Change::Part::end, m_patience);
            one.end = one.decide(one.file->file());
            if (!one.end) return;
            const qint64 replaced = one.file->length() - one.end->kept;
            if (std::max<qint64>(replaced, one.end->bytes.size()) > SafeFile::Change::largestEnd) {
                throw RuntimeFailure(RuntimeFailure::invalidCall);
            }
            result.change = one.file->endChange(one.end->kept, one.end->bytes);
        });
    } catch (const RuntimeFailure& failure) {
        result.failure = failure;
    }
}

// A batch that waited for a file while it holds others could wait for one that waits for these. So files that
// another program has now, or has just changed, come after it, each alone.
void EndChanges::place() {
    placeTogether();
    m_patience = SafeFile::Change::Patience::usual;
    for (Waiting& one : std::exchange(m_busy, {})) {
        m_results[one.result].failure.reset();
        m_waiting.push_back(std::move(one));
        placeTogether();
    }
    m_patience = SafeFile::Change::Patience::none;
}

void EndChanges::placeTogether() {
    inParallel(m_waiting.size(), [this](size_t index) { prepare(m_waiting[index]); });
    replaceOthers();
    announce();
    {
        const Notes notes = takeNotes();
        forEach([this](const Waiting& one) {
            const TailChange& change = m_results[one.result].change;
            one.file->writeEnd(change);
            if (m_afterwards) m_afterwards(one.file->file(), change);
        });
        sync();
        if (!restoreWhatFailed()) {
            for (const auto& note : notes) note->leave();
        }
        forEach([this](const Waiting& one) { m_results[one.result].isDone = true; });
    }
    m_waiting.clear();
}

// What is to stay waits no longer; neither does what can't be changed in place: it is replaced now.
void EndChanges::replaceOthers() {
    forEach([this](const Waiting& one) {
        if (one.end && !one.file->canChangeEnd(one.end->kept, one.end->bytes.size())) replace(one);
    });
    keepBusyOnes();
    std::erase_if(m_waiting, [this](const Waiting& one) {
        const Result& result = m_results[one.result];
        return !one.end || result.isDone || result.failure;
    });
}

void EndChanges::keepBusyOnes() {
    using Reason = RuntimeFailure::Reason;
    if (m_patience == SafeFile::Change::Patience::usual) return;
    for (const Waiting& one : m_waiting) {
        const auto& failure = m_results[one.result].failure;
        const bool isBusy =
            failure && (failure->reason() == Reason::inUse || failure->reason() == Reason::changed);
        if (isBusy) m_busy.push_back({one.result, one.info, one.decide});
    }
}

void EndChanges::replace(const Waiting& one) {
    Result& result = m_results[one.result];
    if (m_aboutToWrite) m_aboutToWrite({result});
    one.file->commit(one.end->kept, {one.end->bytes});
    result.isDone = true;
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

void EndChanges::sync() {
    const auto diskOf = [](const Waiting& one) { return one.info.st_dev; };
    const auto folderOf = [](const Waiting& one) -> const Folder& { return one.file->folder(); };
    if (syncTogether(m_waiting, diskOf, folderOf)) return;
    forEach([](const Waiting& one) { one.file->sync(); });
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
