// SPDX-License-Identifier: MIT
// Reading before a change, and changes in batches.
#include "TagEdits.h"
#include "Session.h"
#include "catalogue/TagEnds.h"
#include "catalogue/TagInFile.h"
#include "platform/base/Arrival.h"
#include "platform/base/File.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"

#include <algorithm>

namespace torvane {

namespace {
bool isFolder(const QByteArray& path) {
    struct stat info {};
    return stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::optional<EndChanges::End> endOf(const Handle& file, const std::optional<TagLine::Fields>& tag) {
    return tag ? std::optional(TagEnds::withTag(file, *tag)) : TagEnds::withoutTag(file);
}

// The old end of a game that ends with the new one; nothing if it has the old end already.
std::optional<EndChanges::End> oldEnd(const Handle& file, const UndoEntry& entry) {
    const qint64 count = infoOf(file).st_size - entry.start;
    const qint64 longest = std::max(entry.before.size(), entry.after.size());
    const QByteArray found = count < 0 || count > longest ? QByteArray() : bytesOf(file, entry.start, count);
    if (count == entry.after.size() && found == entry.after)
        return EndChanges::End{entry.start, entry.before};
    if (count == entry.before.size() && found == entry.before) return std::nullopt;
    failAsChanged();
}
} // namespace

TagEdits::TagEdits(Mode mode, Session& session)
    : m_mode(mode), m_session(session), m_undo(session.backups()), m_canUndo(isFolder(session.library())),
      m_changes([this](const EndChanges::Results& next) { keep(next); }, TagEnds::remember) {}

TagEdits::State TagEdits::stateOf(const GameFile& game) {
    const bool isWaiting = std::any_of(m_waiting.begin(), m_waiting.end(),
                                       [&](const GameFile& one) { return one.path == game.path; });
    if (isWaiting) finish();
    m_session.sweepBeside(game.path);
    const File file = File::ofReal(game.path);
    const qint64 length = file.length();
    return {length, TagWindow::tag(file.handle(), length)};
}

bool TagEdits::hasTag(const GameFile& game) const {
    return TagInFile::hasMarker(File::ofReal(game.path).handle());
}

void TagEdits::add(const TagEdit& edit) {
    change(edit.game, [tag = edit.tag](const Handle& file) { return endOf(file, tag); });
}

void TagEdits::putBack(const UndoEntry& entry) {
    m_session.sweepBeside(entry.path);
    m_putsBack = true;
    change({entry.path, entry.path}, [entry](const Handle& file) { return oldEnd(file, entry); });
}

void TagEdits::change(const GameFile& game, const EndChanges::Decide& decide) {
    if (isRehearsal()) return;
    m_waiting.push_back(game);
    m_changes.add(Paths::spelled(game.path), decide);
    if (m_waiting.size() == Arrival::largestBatch) finish();
}

void TagEdits::finish() {
    const EndChanges::Results results = m_changes.finish();
    for (size_t i = 0; i < results.size(); ++i) {
        const auto& failure = results[i].failure;
        if (!failure) continue;
        if (m_putsBack && failure->reason() == RuntimeFailure::Reason::changed) {
            m_session.reports().fault(m_waiting[i].name, "it was changed after the last run");
            continue;
        }
        // The file of the undo may be at fault.
        const bool isOther = !failure->file().isEmpty() && failure->file() != results[i].path;
        const QByteArray other = isOther ? ": " + NativeText::toNative(failure->file()) : QByteArray();
        m_session.reports().fault(m_waiting[i].name + other, *failure);
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
