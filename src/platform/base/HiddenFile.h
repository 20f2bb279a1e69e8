// SPDX-License-Identifier: MIT
// The hidden files through which other files are changed: new content that will replace a file, and notes
// about changes in place. By their names, Leftovers recognizes what a killed run left behind.
#pragma once

#include "Folder.h"

#include <QByteArrayView>
#include <functional>

namespace torvane {

/// A new file under a name that no list shows. It is locked as long as this object lives, so that no other
/// run of the program takes it for a leftover, and unlinked at the end of the scope unless it was renamed.
class HiddenFile {
public:
    /// The kinds of names; six random letters or digits follow.
    inline static const QByteArray replacement = QByteArrayLiteral(".torvane-");
    inline static const QByteArray tailNote = QByteArrayLiteral(".torvane-tail-");
    /// Notes of earlier versions, about pending appends.
    inline static const QByteArray appendNote = QByteArrayLiteral(".torvane-append-");
    /// Whether a name is of a kind: its prefix and six letters or digits.
    static bool isOfKind(const QByteArray& kind, QByteArrayView name);

    HiddenFile(const Folder& folder, const QByteArray& kind);
    ~HiddenFile();
    HiddenFile(const HiddenFile&) = delete;
    HiddenFile& operator=(const HiddenFile&) = delete;

    const Handle& handle() const { return m_handle; }
    const QByteArray& name() const { return m_name; }
    void write(QByteArrayView bytes) const { writeAll(m_handle, bytes); }
    /// Writes the first `count` bytes of another file, in blocks of at most 1 MiB; fewer if the file shrinks
    /// meanwhile. If the source has holes, blocks of zeros become holes in the copy. `betweenBlocks` is
    /// called after each block.
    void copyFrom(const Handle& source, qint64 count, const std::function<void()>& betweenBlocks = {}) const;
    /// Syncs the content; an error is a failure.
    void sync() const;
    /// Call after the file was renamed: the destructor will not unlink it.
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
