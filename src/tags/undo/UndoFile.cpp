// SPDX-License-Identifier: MIT
// Beginning a log or joining another run's, and giving the one before it back.
#include "UndoFile.h"
#include "UndoBlock.h"
#include "platform/base/Paths.h"

namespace torvane {

void UndoFile::add(const EndChanges::Results& changes) {
    const QByteArray block = UndoBlock::packed(UndoBlock::entriesOf(changes));
    aboutFile(Paths::spelled(path()), [&] {
        if (!m_file.isOpen()) return begin(block);
        UndoBlock::append(m_file, block);
        if (m_ownSize > 0) m_ownSize += block.size();
    });
}

// A second name for the file of the last run needs no room, so it comes back even if a full disk has ended
// this run. Where there are no links, it is lost here. What an unfinished undo has put back is where this run
// begins.
void UndoFile::begin(const QByteArray& block) {
    Folder::make(m_folder);
    const UndoFolder alone(m_folder);
    if (join()) return UndoBlock::append(m_file, block);
    const QByteArray before = UndoFolder::before(m_folder);
    unlink(before.constData());
    if (link(path().constData(), before.constData()) != 0 && errno == ENOSPC) failWithErrno();
    unlink(UndoFolder::redo(m_folder).constData());
    SafeFile::replace(Paths::spelled(path()), UndoBlock::firstLine + block);
    m_file = opened(uninterrupted(
        [&] { return open(path().constData(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW); }));
    UndoFolder::hold(m_file);
    m_ownSize = UndoBlock::firstLine.size() + block.size();
}

bool UndoFile::join() {
    Handle log(uninterrupted(
        [&] { return open(path().constData(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK); }));
    if (!log.isOpen() || UndoFolder::holderOf(log) != UndoFolder::Holder::runs) return false;
    m_file = std::move(log);
    return true;
}

void UndoFile::confirm() {
    if (!m_file.isOpen() || m_isConfirmed) return;
    unlink(UndoFolder::before(m_folder).constData());
    m_isConfirmed = true;
}

UndoFile::~UndoFile() {
    if (m_ownSize > 0 && !m_isConfirmed) ignoring([this] { restore(); });
}

// Not if another run has replaced the file or joined this one.
void UndoFile::restore() const {
    const UndoFolder alone(m_folder);
    if (!UndoFolder::isAt(path(), m_file) || infoOf(m_file).st_size != m_ownSize) return;
    if (rename(UndoFolder::before(m_folder).constData(), path().constData()) != 0) unlink(path().constData());
}

} // namespace torvane
