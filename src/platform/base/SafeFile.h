// SPDX-License-Identifier: MIT
// The only functions through which the program changes files. At any moment, after any failure or power cut,
// a file is completely the old one or the new one: new content is written to a hidden file in the same
// folder, synced, and renamed over the old one; then the folder is synced. The end of a file is changed in
// place and synced, with a note beside the file from which Leftovers can restore the old end.
//
// A file that is replaced keeps its mode, its owner as far as the system allows (otherwise it belongs to the
// user who saved it) and its group (otherwise the group gets the permissions of all others); its modification
// time is now. A copy takes the modification time of its source. A symbolic link stays, and the file that it
// names is replaced. Another hard link keeps the old content, but sees an appended line. Read-only files,
// folders that can't be written, and anything but regular files are refused.
// Failures name the file: the target of a copy, unless the source is at fault. Failures of a Change do not.
#pragma once

#include "TailNote.h"

#include <QString>
#include <functional>
#include <initializer_list>

namespace torvane::SafeFile {

/// Replaces the whole content of the file, or creates it. Fails with the number of the system's error.
void replace(const QString& path, const QByteArray& bytes);

/// Copies a file, replacing a file of just the target's name: one that differs in case is another file. Fails
/// with permissionDenied if both are the same file, since that would only put its content at risk, and if the
/// source changes meanwhile.
void copy(const QString& source, const QString& target);

/// What else is to be done with a file that was changed in place, before it is synced. Must not fail.
using Afterwards = std::function<void(const Handle&)>;

/// Appends bytes to an existing file. `bytesAt` makes them from the old length, in bytes. On a failure the
/// file is cut back to that length, unless another program has appended to it, too. Fails with
/// permissionDenied while another program has the file open for writing. `isWanted` checks the file once no
/// other program can open it any more (as far as leases are available and no reader holds it open): if it
/// returns false, nothing is appended, and the result is false.
/// `afterwards` is called with the changed file.
bool append(const QString& path, const std::function<QByteArray(qint64)>& bytesAt,
            const std::function<bool(const Handle&)>& isWanted = {}, const Afterwards& afterwards = {});

/// A change of one file, from reading it to replacing it. What another program does to the file meanwhile
/// (write to it, rename, remove or replace it) is never overwritten unnoticed: the change fails with
/// permissionDenied, as it does after a moment if another program has the file open for writing.
class Change {
public:
    /// Which part of the file is going to be changed. For a change of the end alone, other programs are kept
    /// from opening the file, as far as leases are available and none has it open already.
    enum class Part { any, end };

    /// What to do while another program keeps the file to itself, or another run of this one changes it. Only
    /// who holds no other file may wait: two that wait for each other would do so in vain.
    enum class Patience { usual, none };

    explicit Change(const QString& path, Part part = Part::any, Patience patience = Patience::usual);
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

    qint64 length() const { return m_before.st_size; }
    /// At most `count` bytes from a position counted from 0.
    QByteArray readAt(qint64 position, qint64 count) const { return bytesOf(m_file, position, count); }
    /// The open file, for reading.
    const Handle& file() const { return m_file; }
    /// Keeps the present file in a folder, which is made if necessary, under a name, or its own if that is
    /// empty; replaces what is kept there. It is a second link, or a copy with the same permissions where
    /// links are impossible.
    void keepBackup(const QString& folder, const QByteArray& name = {}) const;
    /// Replaces the content of the file by the concatenated pieces.
    void commit(std::initializer_list<QByteArrayView> pieces) const { commit(0, pieces); }
    /// The same, but keeps the first `kept` bytes of the file, which may be any number of gigabytes, before
    /// the pieces.
    void commit(qint64 kept, std::initializer_list<QByteArrayView> pieces) const;
    /// The same in place, at a cost that does not depend on the length of the file, and then `afterwards`.
    /// Where that is impossible (see `canChangeEnd`), the file is replaced, and `afterwards` is not called.
    void commitEnd(qint64 kept, std::initializer_list<QByteArrayView> pieces,
                   const Afterwards& afterwards = {}) const;

    /// How many bytes at the end of a file, old or new, are changed in place at most.
    static constexpr qint64 largestEnd = 64 << 10;
    /// Whether all bytes but the first `kept` ones can be replaced in place by so many others: not if other
    /// programs can open the file, if it has a second link, or if more than `largestEnd` change.
    bool canChangeEnd(qint64 kept, qint64 count) const;
    /// That change, for a note. Fails if the name leads to another file by now.
    TailChange endChange(qint64 kept, const QByteArray& bytes) const;
    /// Makes it, without a sync.
    void writeEnd(const TailChange& change) const;
    /// Syncs the content; an error is a failure.
    void sync() const;
    /// The folder of the file, after following all symbolic links.
    const Folder& folder() const { return m_folder; }

private:
    int openedAs(int flags) const;
    bool hold(Part part);
    bool holdAlone();
    bool lock() const;
    bool isAtMostRead() const;
    bool isUntouched(const Folder& folder, const QByteArray& name) const;
    bool keepLink(const Folder& keeping, const QByteArray& name) const;
    void keepCopy(const Folder& keeping, const QByteArray& name) const;
    void exchange(HiddenFile& fresh) const;
    void restore(HiddenFile& fresh, struct stat put, const std::function<int(unsigned)>& rename) const;

    QByteArray m_path;
    Place m_place;
    Folder m_folder;
    Handle m_file;
    struct stat m_before {};
    int m_lease = F_UNLCK; // its kind; F_UNLCK for none
};

} // namespace torvane::SafeFile
