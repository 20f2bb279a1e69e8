// SPDX-License-Identifier: MIT
// Batches of old ends, and the exchange of the two logs.
#include "UndoRun.h"
#include "catalogue/TagEnds.h"
#include "platform/base/Arrival.h"
#include "platform/base/Paths.h"
#include "tags/session/Session.h"

#include <algorithm>

namespace torvane {

namespace {
Handle openedForMore(const QByteArray& log) {
    return Handle(uninterrupted(
        [&] { return open(log.constData(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK); }));
}
} // namespace

std::optional<EndChanges::End> UndoRun::oldEnd(const Handle& game, const UndoEntry& entry) {
    const qint64 count = infoOf(game).st_size - entry.start;
    const qint64 longest = std::max(entry.before.size(), entry.after.size());
    const QByteArray found = count < 0 || count > longest ? QByteArray() : bytesOf(game, entry.start, count);
    if (count == entry.after.size() && found == entry.after)
        return EndChanges::End{entry.start, entry.before};
    if (count == entry.before.size() && found == entry.before) return std::nullopt;
    failAsChanged();
}

UndoRun::UndoRun(Session& session)
    : m_session(session), m_folder(session.backups()),
      m_changes([this](const EndChanges::Results& next) { keep(next); }, TagEnds::remember) {}

void UndoRun::run() {
    if (!open()) return m_session.reports().refusal("another command is still at work on games");
    m_session.reports().begin(m_log->count());
    const bool isComplete = m_log->visitBackwards(
        [this](const UndoLog::Place& place, const UndoEntry& entry) { return putBack(place, entry); });
    finishBatch();
    m_session.reports().end();
    m_faults.report(m_session.reports());
    end(isComplete);
}

// False if another command is at work: it goes on writing to its log.
bool UndoRun::open() {
    const UndoFolder alone(m_folder);
    m_log.emplace(last());
    if (UndoFolder::holderOf(m_log->file()) != UndoFolder::Holder::nobody) return false;
    m_redo = openedForMore(redo());
    m_hasPutBack = m_redo.isOpen();
    return true;
}

bool UndoRun::putBack(const UndoLog::Place& place, const UndoEntry& entry) {
    if (m_session.isOver()) return false;
    m_session.sweepBeside(entry.path);
    m_waiting.push_back({place, entry.path});
    m_changes.add(Paths::spelled(entry.path), [entry](const Handle& game) { return oldEnd(game, entry); });
    if (m_waiting.size() == Arrival::largestBatch) finishBatch();
    m_session.reports().step();
    return true;
}

void UndoRun::finishBatch() {
    const EndChanges::Results results = m_changes.finish();
    for (size_t i = 0; i < results.size(); ++i) {
        const auto& [place, path] = m_waiting[i];
        if (results[i].isDone) m_hasPutBack = true;
        results[i].failure ? m_faults.add(place, path, *results[i].failure) : m_faults.clear(path);
    }
    m_waiting.clear();
}

// What is going to be put back is on the disk when this returns.
void UndoRun::keep(const EndChanges::Results& next) {
    const QByteArray block = UndoBlock::packed(UndoBlock::entriesOf(next));
    aboutFile(Paths::spelled(redo()),
              [&] { m_redo.isOpen() ? UndoBlock::append(m_redo, block) : beginRedo(block); });
}

// A run that has begun meanwhile has a log of its own, to which this undo has nothing to add.
void UndoRun::beginRedo(const QByteArray& block) {
    const UndoFolder alone(m_folder);
    if (!UndoFolder::isAt(last(), m_log->file())) return;
    SafeFile::replace(Paths::spelled(redo()), UndoBlock::firstLine + block);
    m_redo = openedForMore(redo());
    if (!m_redo.isOpen()) failWithErrno();
}

// They are in the order in which they were made, as in the log of the last run.
void UndoRun::keepFaults() {
    if (m_faults.isEmpty()) return;
    const std::set<UndoLog::Place> failed = m_faults.changes();
    m_log->visitBlocks([&](const UndoLog::Place& place) { return failed.count(place) > 0; },
                       [this](const std::vector<UndoEntry>& entries) {
                           UndoBlock::append(m_redo, UndoBlock::packed(entries));
                       });
}

// An undo that has put nothing back leaves everything as it was.
void UndoRun::end(bool isComplete) {
    if (!m_redo.isOpen() || (m_hasPutBack && !isComplete)) return;
    if (m_hasPutBack) aboutFile(Paths::spelled(redo()), [this] { keepFaults(); });
    const UndoFolder alone(m_folder);
    if (!UndoFolder::isAt(last(), m_log->file()) || !UndoFolder::isAt(redo(), m_redo)) return;
    if (!m_hasPutBack)
        unlink(redo().constData());
    else if (rename(redo().constData(), last().constData()) != 0)
        aboutFile(Paths::spelled(redo()), failWithErrno);
    alone.sync();
}

} // namespace torvane
