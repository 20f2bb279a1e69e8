// SPDX-License-Identifier: MIT
// The note beside a file to which something is being appended: a power cut can leave half a line behind a
// game, which would be taken for a tag with a wrong size. With the note a later start puts the file back.
#pragma once

#include "HiddenFile.h"

#include <optional>

namespace torvane {

class AppendNote {
public:
    struct Content {
        QByteArray name;   ///< of the file, in the same folder
        qint64 length = 0; ///< of the file before, in bytes
        QByteArray bytes;  ///< what is appended
    };

    /// On the disk when the constructor returns; gone with this object. A line that no note can hold is
    /// refused as too much for the memory.
    AppendNote(const Folder& folder, const Content& content);
    /// The note stays for a later start, since the file could not be brought back now.
    void leave() { m_file.forget(); }

    /// What a note says; nothing if it is not whole: then nothing was appended.
    static std::optional<Content> read(const Handle& note);
    /// Cuts the file to the length if what was appended stands behind it, whole or in part, and that alone:
    /// what another program has written stays. False if that was needed and failed.
    static bool cutBack(const Handle& file, const Content& content);
    /// The same to the file that the note names, but a whole line stays, and a part of it may have holes.
    static bool settle(const Folder& folder, const Content& content);

private:
    HiddenFile m_file;
};

} // namespace torvane
