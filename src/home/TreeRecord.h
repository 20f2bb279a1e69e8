// SPDX-License-Identifier: MIT
// What was laid out in a folder, kept in a file of that folder. The folder of a tree that others are laid out
// from has the same file: there it is the tree's index, so that nobody has to read the tree itself.
//
// Records end with NUL, since a path may contain any other byte. The first one may be "version VERSION"; the
// others have four fields separated by single blanks:
//     checksum laid out last, or 64 times "-"; checksum of the source; "SIZE:MODE" of it; "./" and the path
#pragma once

#include <QByteArray>
#include <map>
#include <sys/types.h>

namespace torvane {

/// One file that was laid out, or that exists and was not.
struct LaidFile {
    QByteArray laid;    ///< the checksum of what was laid out last; empty if nothing was
    QByteArray sum;     ///< the checksum of the source
    qint64 size = 0;    ///< of the source, in bytes
    mode_t mode = 0644; ///< of the source
};

struct TreeRecord {
    /// The path of the record below its folder.
    inline static const QByteArray file = QByteArrayLiteral("data/.laid-out");

    /// The record of a folder (real path). Empty if there is none; what can't be understood is left out.
    /// Fails if it exists and can't be read.
    static TreeRecord of(const QByteArray& folder);
    QByteArray toBytes() const;
    /// Stores the record in a folder, synced; writes nothing if it is stored already.
    void store(const QByteArray& folder) const;

    /// The version of the program whose files these are; empty if unknown.
    QByteArray version;
    /// By the path below the folder.
    std::map<QByteArray, LaidFile> files;
};

} // namespace torvane
