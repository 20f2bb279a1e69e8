// SPDX-License-Identifier: MIT
// The hidden files through which other files are changed: new content that waits to take a file's place, and
// notes of what is under way. Their names tell Leftovers what a killed run has left behind.
#pragma once

#include "SystemCalls.h"

#include <QByteArrayView>
#include <functional>

namespace torvane {

/// An open folder: names in it mean the same files even if the folder itself is renamed meanwhile.
class Folder {
public:
    /// Opens the folder of a real path. One that may be written but not read can be used, not synced.
    explicit Folder(const QByteArray& path);
    /// Makes a folder with those around it, each on the disk before anything is put into it. One that is
    /// there stays.
    static void make(const QByteArray& path);

    int number() const { return m_handle.number(); }
    /// Brings all changes of names to the disk. File systems that have no such call count as synced; every
    /// other error is a failure.
    void sync() const;
    /// The state of a name, links not followed; false if there is none.
    bool stat(const QByteArray& name, struct stat& info) const;
    void unlink(const QByteArray& name) const { unlinkat(number(), name.constData(), 0); }

private:
    Handle m_handle;
    bool m_canSync = true;
};

/// A new file under a name that no list shows, locked as long as this object lives, so that no other run of
/// the program takes it for a leftover. Gone at the end of the scope unless it has got another name.
class HiddenFile {
public:
    /// The two kinds of names; six random letters or digits follow.
    inline static const QByteArray replacement = QByteArrayLiteral(".torvane-");
    inline static const QByteArray appendNote = QByteArrayLiteral(".torvane-append-");
    /// Whether a name is of a kind: its beginning and six letters or digits.
    static bool isOfKind(const QByteArray& kind, QByteArrayView name);

    HiddenFile(const Folder& folder, const QByteArray& kind);
    ~HiddenFile();
    HiddenFile(const HiddenFile&) = delete;
    HiddenFile& operator=(const HiddenFile&) = delete;

    const Handle& handle() const { return m_handle; }
    const QByteArray& name() const { return m_name; }
    void write(QByteArrayView bytes) const { writeAll(m_handle, bytes); }
    /// Writes the bytes that another file has now, in blocks of 1 MiB; fewer if it becomes shorter meanwhile.
    /// After each block the caller may do something else.
    void copyFrom(const Handle& source, const std::function<void()>& betweenBlocks = {}) const;
    /// Brings the content to the disk; an error is a failure.
    void sync() const;
    /// The file has got a name of its own: nothing is left to remove.
    void forget() { m_name.clear(); }

private:
    explicit HiddenFile(const Folder& folder) : m_folder(folder) {}
    bool lock() const;

    const Folder& m_folder;
    QByteArray m_name;
    Handle m_handle;
};

/// A folder and the name in it.
struct Place {
    QByteArray folder;
    QByteArray name;
};
/// The place of a real path behind all symbolic links: where a rename has to hit. A link may lead to a file
/// that is still to be made. Links in a circle are a failure.
Place placeOf(const QByteArray& path);

} // namespace torvane
