// SPDX-License-Identifier: MIT
// The hidden files through which other files are changed: new content that waits to take a file's place, and
// notes of what is under way. Their names tell Leftovers what a killed run has left behind.
#pragma once

#include "Folder.h"

#include <QByteArrayView>
#include <functional>

namespace torvane {

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
    /// Writes the first `count` bytes of another file, in blocks of 1 MiB; fewer if it becomes shorter
    /// meanwhile. Where a file with holes has nothing but zeros the copy gets a hole. After each block the
    /// caller may do something else.
    void copyFrom(const Handle& source, qint64 count, const std::function<void()>& betweenBlocks = {}) const;
    /// Brings the content to the disk; an error is a failure.
    void sync() const;
    /// The file has got a name of its own: nothing is left to remove.
    void forget() { m_name.clear(); }

private:
    explicit HiddenFile(const Folder& folder) : m_folder(folder) {}
    bool lock() const;
    void skip(qint64 count) const;

    const Folder& m_folder;
    QByteArray m_name;
    Handle m_handle;
};

} // namespace torvane
