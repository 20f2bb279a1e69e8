// SPDX-License-Identifier: MIT
// What a run that writes to games changes, kept among the backups, so that it can be undone.
#pragma once

#include "UndoFolder.h"
#include "platform/base/EndChanges.h"

namespace torvane {

/// Keeps the changes of this run, together with those of runs that overlap it. Those of the last run are kept
/// beside them until the first of these was made, and come back with the end of this object if none was.
class UndoFile {
public:
    /// `folder`: real path of that of the backups, which is made if necessary.
    explicit UndoFile(const QByteArray& folder) : m_folder(folder) {}
    ~UndoFile();
    UndoFile(const UndoFile&) = delete;
    UndoFile& operator=(const UndoFile&) = delete;

    /// Adds changes that are going to be made; they are on the disk when this returns. Fails if they can't be
    /// written.
    void add(const EndChanges::Results& changes);
    /// One of these changes was made: the last run can't be undone any more.
    void confirm();

private:
    void begin(const QByteArray& block);
    bool join();
    void restore() const;
    QByteArray path() const { return UndoFolder::last(m_folder); }

    QByteArray m_folder;
    bool m_isConfirmed = false;
    qint64 m_ownSize = 0; // what this run has written to a log that it has begun; 0 for one of another run
    Handle m_file;        // open from the first change on
};

} // namespace torvane
