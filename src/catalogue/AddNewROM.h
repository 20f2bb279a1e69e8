// SPDX-License-Identifier: MIT
// Bringing games into the library, and deleting where they came from: one file, or those of a folder. Owned
// by the window that asks the user.
#pragma once

#include "core/Globals.h"
#include "platform/base/FileCopies.h"
#include "platform/base/RuntimeFailure.h"

#include <QStringList>

namespace torvane {

/// Gives the owner of a file the right to write it. Symbolic links are not followed; every failure is
/// ignored.
void SetFileAttributes(const QString& path);

/// The folder before a mark in a path: all before the first occurrence, even if the folder's own name holds
/// the mark. The whole path if the mark is empty or does not occur.
QString folderInFront(const QString& path, const QString& mark);

/// An original that is still there, and why.
struct KeptSource {
    enum Reason {
        isInLibrary, ///< it is the game of the library itself
        hasChanged,  ///< it, or its copy, is no longer as it was when it was copied
        failed       ///< the system refused the deletion
    };

    QString path; ///< spelled
    Reason reason = failed;
    RuntimeFailure::Number failure = RuntimeFailure::none; ///< of a refused deletion
};

/// What became of the originals.
struct Deletion {
    int gone = 0;
    std::vector<KeptSource> kept;
};

class AddNewROM {
public:
    explicit AddNewROM(const Globals& globals) : m_globals(globals) {}

    /// Begins an import; what was added before is no longer known. `serve` is called about every 10 ms while
    /// there is work.
    void begin(std::function<void()> serve);
    /// Copies a file into the library, replacing one of that name, whole or not at all; in place after
    /// `finish`. False if that is the file itself: it stays as it is. On a failure the copies before it are
    /// put in place first.
    bool AddRomToLibrary(const QString& source, const QString& name);
    /// Puts all copies in place; all that is written reaches the disk.
    void finish();

    /// Deletes the files that the import has copied, as far as nothing is lost by it. Never fails: what can't
    /// be deleted stays like the others that do.
    Deletion deleteSources();
    /// Deletes a file of the user's after a single import: the one that was copied, or another one that he
    /// has named. Nothing is deleted, and the answer is false, if there is no whole copy, if the path is the
    /// copy's own, or if the source has changed since. Fails if it can't be deleted.
    bool deleteSource(const QString& path);

private:
    const Globals& m_globals;
    std::unique_ptr<FileCopies> m_copies;
    QStringList m_inLibrary; // sources that are games of the library themselves
};

} // namespace torvane
