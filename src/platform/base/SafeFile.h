// SPDX-License-Identifier: MIT
// The only ways in which the program changes files. At any moment, after any failure or power cut, a file is
// the old one or the new one, whole: new content goes to a hidden file in the same folder, which is synced
// and takes the old one's place by one call; then the folder is synced. A line behind a file is written in
// one call and synced, with a note beside it from which Leftovers can undo half a line.
//
// A file that is replaced keeps its mode, its owner as far as the system allows (else it belongs to who saved
// it) and its group (else the group's rights become those of all others); it was changed now. A copy takes
// over when its source was last changed. A symbolic link stays, and the file that it names is replaced.
// Another hard link keeps the former content, but sees a line that is appended. Refused are read-only files,
// folders that can't be written, and what is no regular file.
// Failures name the file: the target of a copy, unless the source is at fault. Those of a Change leave that
// to its user.
#pragma once

#include "HiddenFile.h"

#include <QString>
#include <functional>
#include <initializer_list>

namespace torvane::SafeFile {

/// Makes the bytes the whole content of the file; a file that is not there is created. Fails with the number
/// of the system's reason.
void replace(const QString& path, const QByteArray& bytes);

/// Copies a file; a file of the target's name is replaced. Copying a file onto itself is refused with a
/// permission failure, as the content would be at risk for nothing; so is a source that changes meanwhile.
void copy(const QString& source, const QString& target);

/// Writes bytes behind a file that is there. They may depend on the former length, in bytes. On a failure the
/// file is cut back to it, unless another program has written behind it, too. Refused with a permission
/// failure while another program holds the file open for writing. `isWanted` looks at the file when no other
/// program can open it any more (where there are leases and none has it open): false leaves it as it is, and
/// is the result.
bool append(const QString& path, const std::function<QByteArray(qint64)>& bytesBehind,
            const std::function<bool(const Handle&)>& isWanted = {});

/// A change of one file, from the reading of it to its replacement. What another program does to the file in
/// between (write into it, rename, remove or replace it) is never overwritten unseen: the change fails with a
/// permission failure, as it does from the beginning if another program holds the file open for writing.
class Change {
public:
    explicit Change(const QString& path);
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

    qint64 length() const { return m_former.st_size; }
    /// At most `count` bytes from a position counted from 0.
    QByteArray readAt(qint64 position, qint64 count) const { return bytesOf(m_file, position, count); }
    /// The open file, for reading.
    const Handle& file() const { return m_file; }
    /// Keeps the file as it is now under its name in a folder, which is made if need be, in the place of what
    /// is kept there: as a second link, or as a copy with the same rights where no link can be made.
    void keepFormer(const QString& folder) const;
    /// Makes the pieces, one behind the other, the content of the file.
    void commit(std::initializer_list<QByteArrayView> pieces) const { commit(0, pieces); }
    /// The same behind the first `kept` bytes of the file, which may be any number of gigabytes.
    void commit(qint64 kept, std::initializer_list<QByteArrayView> pieces) const;

private:
    bool isUntouched(const Folder& folder, const QByteArray& name) const;
    bool keepLink(const Folder& keeping) const;
    void keepCopy(const Folder& keeping) const;
    void exchange(HiddenFile& fresh) const;
    void giveBack(HiddenFile& fresh, struct stat put, const std::function<int(unsigned)>& rename) const;

    QByteArray m_path;
    Place m_place;
    Folder m_folder;
    Handle m_file;
    struct stat m_former {};
    bool m_hasLease = false;
};

} // namespace torvane::SafeFile
