// SPDX-License-Identifier: MIT
// The files that are to be laid out, and where they are.
#pragma once

#include "TreeRecord.h"
#include "platform/base/RuntimeFailure.h"

#include <QByteArrayList>
#include <vector>

namespace torvane {

struct SourceTree {
    struct Entry {
        QByteArray path; ///< real path
        QByteArray sum;
        qint64 size = 0;
        mode_t mode = 0644;
    };

    /// The tree in a folder that has a record; of a folder without one, an empty tree. Reads only the record.
    /// Fails if it can't be read.
    static SourceTree recorded(const QByteArray& folder);
    /// All regular files in some folders, links followed, with a version (may be empty). If two folders have
    /// the same path, the later one wins. Records are left out. What can't be read goes to `failures`.
    static SourceTree gathered(const QByteArrayList& folders, const QByteArray& version,
                               std::vector<RuntimeFailure>& failures);

    QByteArray version;
    /// By the path below the folder.
    std::map<QByteArray, Entry> files;
};

} // namespace torvane
