// SPDX-License-Identifier: MIT
// The folder of the logs that an undo needs, and who works with them. Runs that overlap share a log, so that
// one undo takes all of them back.
#pragma once

#include "platform/base/Folder.h"

namespace torvane {

/// While it lives, no other run can look who works with the logs, or replace one. That takes moments only.
/// Where there are no locks, nobody is kept from it.
class UndoFolder {
public:
    /// `path`: real, of the folder of the backups.
    explicit UndoFolder(const QByteArray& path);

    enum class Holder { nobody, runs, undo };
    /// Who works with an open log. Holds it in the same way from now on, with no holder as an undo does;
    /// closing the file lets it go.
    static Holder holderOf(const Handle& log);
    /// Holds a new log, for this run and those that begin meanwhile.
    static void hold(const Handle& log);
    /// Whether a real path leads to this open file.
    static bool isAt(const QByteArray& path, const Handle& file);

    /// Syncs the names in it, as far as that is possible.
    void sync() const { m_folder.sync(); }

    /// The real paths: of what the last run has changed; the same of the run before it, as long as the last
    /// one has changed nothing yet; and of what an undo that did not reach its end has put back.
    static QByteArray last(const QByteArray& folder) { return folder + "/last-run.undo"; }
    static QByteArray before(const QByteArray& folder) { return last(folder) + ".before"; }
    static QByteArray redo(const QByteArray& folder) { return folder + "/last-run.redo"; }

private:
    Folder m_folder;
};

} // namespace torvane
