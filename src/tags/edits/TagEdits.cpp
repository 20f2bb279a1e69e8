// SPDX-License-Identifier: MIT
// Reading before a change, and changes in batches.
#include "TagEdits.h"
#include "catalogue/TagEnds.h"
#include "catalogue/TagInFile.h"
#include "platform/base/Arrival.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"
#include "tags/session/Session.h"

#include <algorithm>

namespace torvane {

namespace {
bool isFolder(const QByteArray& path) {
    struct stat info {};
    return stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

// The window, and the byte after it; of a file too short for one, as much as there is.
QByteArray lastBytes(const Handle& file, qint64 length) {
    const qint64 start = std::max<qint64>(length - TagWindow::size - 1, 0);
    return bytesOf(file, start, length - start);
}

void requireSeen(const Handle& file, const TagEdits::State& seen) {
    const bool isSame = infoOf(file).st_size == seen.length && lastBytes(file, seen.length) == seen.end;
    if (!isSame) failAsChanged();
}

std::optional<EndChanges::End> endOf(const Handle& file, const std::optional<TagLine::Fields>& tag) {
    return tag ? std::optional(TagEnds::withTag(file, *tag)) : TagEnds::withoutTag(file);
}
} // namespace

TagEdits::TagEdits(Mode mode, Session& session)
    : m_mode(mode), m_session(session), m_undo(session.backups()), m_canUndo(isFolder(session.library())),
      m_changes([this](const EndChanges::Results& next) { keep(next); }, TagEnds::remember) {}

TagEdits::State TagEdits::stateOf(const GameFile& game) {
    if (isWaiting(game.path)) finish();
    m_session.sweepBeside(game.path);
    const File file = File::ofReal(game.path);
    const qint64 length = file.length();
    // Before the tag: if another program changes the file between the two, it is no longer in the state that
    // is returned.
    const QByteArray end = lastBytes(file.handle(), length);
    return {length, TagWindow::tag(file.handle(), length), end};
}

// A game may be named twice, through links.
bool TagEdits::isWaiting(const QByteArray& path) const {
    struct stat info {};
    return stat(path.constData(), &info) == 0 &&
           std::any_of(m_waiting.begin(), m_waiting.end(),
                       [&](const Waiting& one) { return isSameFile(one.info, info); });
}

bool TagEdits::hasTag(const GameFile& game) const {
    return TagInFile::hasMarker(File::ofReal(game.path).handle());
}

void TagEdits::add(const TagEdit& edit, const State& seen) {
    if (isRehearsal()) return;
    Waiting one{edit.game.name, {}};
    stat(edit.game.path.constData(), &one.info);
    m_waiting.push_back(one);
    m_changes.add(Paths::spelled(edit.game.path), [tag = edit.tag, seen](const Handle& file) {
        requireSeen(file, seen);
        return endOf(file, tag);
    });
    if (m_waiting.size() == Arrival::largestBatch) finish();
}

void TagEdits::finish() {
    const EndChanges::Results results = m_changes.finish();
    for (size_t i = 0; i < results.size(); ++i) {
        const auto& failure = results[i].failure;
        if (results[i].isDone) m_undo.confirm();
        if (failure) m_session.reports().fault(m_waiting[i].name, results[i].path, *failure);
    }
    m_waiting.clear();
}

// Games may be changed where there is no library to keep anything in.
void TagEdits::keep(const EndChanges::Results& next) {
    if (m_canUndo) return m_undo.add(next);
    if (!m_hasWarned)
        m_session.reports().remark("this run can't be undone: there is no library to keep it in");
    m_hasWarned = true;
}

} // namespace torvane
