// SPDX-License-Identifier: MIT
// The note beside a file that is being appended to. A power cut can leave half a line after a game, which
// would be read as a tag with a wrong size. With the note, a later start restores the file.
#pragma once

#include "HiddenFile.h"

#include <optional>

namespace torvane {

class AppendNote {
public:
    struct Content {
        QByteArray name;   ///< of the file, in the same folder
        qint64 length = 0; ///< of the file before the append, in bytes
        QByteArray bytes;  ///< the appended bytes
    };

    /// The note is on the disk when the constructor returns, and is removed with this object. Content too
    /// large for a note fails with outOfMemory.
    AppendNote(const Folder& folder, const Content& content);
    /// Keeps the note for a later start, because the file could not be restored now.
    void leave() { m_file.forget(); }

    /// The content of a note; nothing if the note is incomplete or damaged: then nothing was appended yet.
    static std::optional<Content> read(const Handle& note);
    /// Cuts the file to its old length if all that follows is the appended bytes or their beginning. What
    /// another program has written stays. False if the cut was needed and failed.
    static bool cutBack(const Handle& file, const Content& content);
    /// The same for the file that the note names, except that a complete line stays, and zeros may replace
    /// some bytes of a partial one. False if the note is still needed.
    static bool recover(const Folder& folder, const Content& content);

private:
    HiddenFile m_file;
};

} // namespace torvane
