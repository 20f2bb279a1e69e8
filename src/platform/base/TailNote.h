// SPDX-License-Identifier: MIT
// The note beside files whose ends are being changed in place. A power cut can leave a mixture of the old and
// the new end. With the note, a later start restores the old one.
#pragma once

#include "HiddenFile.h"

#include <optional>
#include <vector>

namespace torvane {

/// The end of a file, before and after a change. Nothing ahead of it changes.
struct TailChange {
    QByteArray name;   ///< of the file, in the folder of the note
    quint64 inode = 0; ///< of the file, which another program may rename; 0 if unknown
    qint64 start = 0;  ///< where the end begins, in bytes from the start of the file
    QByteArray before; ///< the bytes from there to the end of the file; empty where some are appended
    QByteArray after;
};

class TailNote {
public:
    using Changes = std::vector<TailChange>;

    /// The note is on the disk when the constructor returns, and is removed with this object. Changes too
    /// large for a note fail with outOfMemory.
    TailNote(const Folder& folder, const Changes& changes);
    /// Keeps the note for a later start, because a file could not be restored now.
    void leave() { m_file.forget(); }

    /// Whether a name is that of a note.
    static bool isName(QByteArrayView name);
    /// The changes in a note of that name; nothing if it is incomplete or damaged: then nothing was changed
    /// yet.
    static std::optional<Changes> read(const Handle& note, QByteArrayView name);
    /// Restores the old end of the file if all that is there is a mixture of the old and the new one. What
    /// another program has written stays. False if this was needed and failed.
    static bool restore(const Handle& file, const TailChange& change);
    /// The same for the file that the change names, except that a complete new end stays, and zeros may
    /// replace some bytes of the mixture. A file that was renamed within its folder is found. False if the
    /// note is still needed.
    static bool recover(const Folder& folder, const TailChange& change);

private:
    HiddenFile m_file;
};

} // namespace torvane
