// SPDX-License-Identifier: MIT
// Batches of copies and their syncs.
#include "FileCopies.h"
#include "NativeText.h"
#include "Paths.h"

#include <QSet>
#include <chrono>
#include <future>
#include <optional>
#include <system_error>
#include <utility>

namespace torvane {

namespace {
constexpr int serveInterval = 10; // ms

std::optional<struct stat> stateOf(const QByteArray& path) {
    struct stat info {};
    if (stat(path.constData(), &info) != 0) return std::nullopt;
    return info;
}
} // namespace

bool CopyRecord::isIntact() const {
    const auto present = stateOf(target);
    return present && isSameState(*present, copy) && present->st_size == was.st_size;
}

bool CopyRecord::coversSource() const {
    const auto present = stateOf(source);
    return present && isSameState(*present, was) && !isSameFile(*present, copy) && isIntact();
}

bool CopyRecord::covers(const QByteArray& path) const {
    const auto present = stateOf(path);
    if (!present) return isIntact();
    const bool isSource = path == source || isSameFile(*present, was);
    if (isSource && !isSameState(*present, was)) return false;
    return !isSameFile(*present, copy) && isIntact();
}

FileCopies::FileCopies(const QString& folder, std::function<void()> serve)
    : m_folder(Paths::real(folder)), m_serve(std::move(serve)) {
    m_served.start();
}

bool FileCopies::add(const QString& source, const QString& name) {
    serveIfDue();
    Waiting waiting;
    waiting.record.source = Paths::real(source);
    waiting.record.target = m_folder + '/' + NativeText::toNative(name);
    aboutFile(source, [&] {
        waiting.arrival = Arrival::ofCopy(waiting.record.source, waiting.record.target, waiting.record.was,
                                          [this] { serveIfDue(); });
        if (waiting.arrival) waiting.arrival->applyPermissions();
    });
    if (!waiting.arrival) return false;
    // Start write-back early to shorten the sync; a failure here does not matter.
    sync_file_range(waiting.arrival->fresh().handle().number(), 0, 0, SYNC_FILE_RANGE_WRITE);
    m_waiting.push_back(std::move(waiting));
    if (m_waiting.size() == Arrival::largestBatch) finish();
    return true;
}

void FileCopies::finish() {
    std::vector<Waiting> batch = std::exchange(m_waiting, {});
    if (batch.empty()) return;
    inBackground([&] { sync(batch); });
    place(batch);
}

// One syncfs() commits the journal and flushes the disk's cache once for all files. It reports every error
// since the folder was opened, but not in which file: then each file is synced by itself.
void FileCopies::sync(const std::vector<Waiting>& batch) {
    if (batch.size() > Arrival::fewFiles && batch.front().arrival->folder().syncFileSystem()) return;
    for (const Waiting& waiting : batch) waiting.arrival->fresh().sync();
}

void FileCopies::place(std::vector<Waiting>& batch) {
    std::optional<RuntimeFailure> firstFailure;
    std::vector<Waiting> placed;
    for (Waiting& waiting : batch) {
        try {
            waiting.arrival->rename();
            waiting.record.copy = infoOf(waiting.arrival->fresh().handle());
            placed.push_back(std::move(waiting));
        } catch (const RuntimeFailure& failure) {
            if (!firstFailure) firstFailure = failure.about(Paths::spelled(waiting.record.target));
        }
    }
    inBackground([&] { syncFolders(placed); });
    for (Waiting& waiting : placed) m_records.push_back(std::move(waiting.record));
    if (firstFailure) throw RuntimeFailure(*firstFailure);
}

void FileCopies::syncFolders(const std::vector<Waiting>& batch) {
    QSet<QByteArray> done;
    for (const Waiting& waiting : batch) {
        const QByteArray& folder = waiting.arrival->place().folder;
        if (done.contains(folder)) continue;
        waiting.arrival->folder().sync();
        done.insert(folder);
    }
}

void FileCopies::serveIfDue() {
    if (m_served.elapsed() < serveInterval) return;
    m_serve();
    m_served.start();
}

// A sync may take seconds and can't be split. It alone runs on a thread of its own, which touches only open
// files, while this thread calls `serve`.
void FileCopies::inBackground(const std::function<void()>& call) const {
    std::future<void> work;
    try {
        work = std::async(std::launch::async, call);
    } catch (const std::system_error&) {
        call();
        return;
    }
    while (work.wait_for(std::chrono::milliseconds(serveInterval)) != std::future_status::ready) m_serve();
    work.get();
}

} // namespace torvane
