// SPDX-License-Identifier: MIT
// Imports games into the library, one file or those of a folder, and deletes the originals. Owned by the
// window that asks the user.
#pragma once

#include "core/Globals.h"
#include "platform/base/FileCopies.h"
#include "platform/base/RuntimeFailure.h"

#include <QStringList>
#include <optional>

namespace torvane {

/// Gives the owner of a file write permission. Symbolic links are not followed; failures are ignored.
void SetFileAttributes(const QString& path);

/// The part of a path before the first occurrence of a mark, even if that is in the name of a folder. The
/// whole path if the mark is empty or does not occur.
QString folderInFront(const QString& path, const QString& mark);

/// An original that is still there, and why.
struct KeptSource {
    enum Reason {
        isInLibrary, ///< it is itself a game of the library
        hasChanged,  ///< it or its copy has changed since it was copied
        failed       ///< the system refused the deletion
    };

    QString path; ///< as Paths::spelled gives it
    Reason reason = failed;
    std::optional<RuntimeFailure> failure = {}; ///< of a refused deletion; names the file
};

/// What became of the originals.
struct Deletion {
    int gone = 0;
    std::vector<KeptSource> kept;
};

class AddNewROM {
public:
    explicit AddNewROM(const Globals& globals) : m_globals(globals) {}

    /// Begins an import and forgets the previous one. `serve` is called about every 10 ms during the work.
    void begin(std::function<void()> serve);
    /// Copies a file into the library, replacing a game of that name; a partial copy never appears. The copy
    /// is in place after `finish`. False if that game is the source itself, which stays unchanged. On failure
    /// the earlier copies are put in place before the failure is passed on.
    bool AddRomToLibrary(const QString& source, const QString& name);
    /// Puts all copies in place and syncs them to the disk.
    void finish();

    /// Deletes the originals of the import, except where that would lose data. Never fails: an original that
    /// can't be deleted is reported as kept.
    Deletion deleteSources();
    /// Deletes a file after the import of a single game: the original, or another file that the user has
    /// named. Returns false, and deletes nothing, if there is no complete copy, if the path is that of the
    /// copy, or if the source has changed since. Fails if the file can't be deleted.
    bool deleteSource(const QString& path);
    /// Why deleteSource has kept a file.
    KeptSource kept(const QString& path) const;

private:
    const Globals& m_globals;
    std::unique_ptr<FileCopies> m_copies;
    QStringList m_inLibrary; // sources that are themselves games of the library
};

} // namespace torvane
