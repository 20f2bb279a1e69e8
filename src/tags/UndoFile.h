// SPDX-License-Identifier: MIT
// What the last run that wrote to games has changed, kept among the backups, so that it can be undone.
#pragma once

#include "platform/base/EndChanges.h"

#include <optional>

namespace torvane {

/// The end of a game, before and after a change.
struct UndoEntry {
    QByteArray path; ///< real
    qint64 start = 0;
    QByteArray before, after;
};

/// Keeps the changes of this run. Those of the last run are kept beside them until the first of these was
/// made, and come back with the end of this object if none was.
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

    /// The real path of the file in that folder.
    static QByteArray pathIn(const QByteArray& folder) { return folder + "/last-run.undo"; }

private:
    void begin(const QByteArray& block);
    QByteArray path() const { return pathIn(m_folder); }
    QByteArray pathBefore() const { return path() + ".before"; }

    QByteArray m_folder;
    bool m_isConfirmed = false;
    Handle m_file; // open from the first change on
};

/// The changes of the last run, the latest first.
class UndoLog {
public:
    /// Fails if the file can't be read or is none of these. What a killed run has written in part is ignored:
    /// those changes were not made.
    explicit UndoLog(const QByteArray& path);

    int count() const { return m_count; }
    /// Some of the changes, the next earlier ones at each call; none after the first of all.
    std::vector<UndoEntry> next();

private:
    struct Block {
        qint64 start = 0, size = 0;
    };
    std::optional<std::vector<UndoEntry>> entriesOf(const Block& block) const;

    Handle m_file;
    std::vector<Block> m_blocks;
    int m_count = 0;
};

} // namespace torvane
