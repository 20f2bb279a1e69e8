// SPDX-License-Identifier: MIT
// The two files of web pages: the shared list, "\data\url.dat", which a download replaces, and the user's
// own, "\data\url_perso.dat". Owned by the windows that read and change them. Every failure names the file.
#pragma once

#include "WebEntries.h"
#include "core/Globals.h"

#include <memory>
#include <optional>

namespace torvane {

class WebLists {
public:
    /// A list of more bytes is not read, and nothing makes one that long.
    static constexpr qint64 mostBytes = qint64{8} << 20;
    /// A download of more bytes is refused: a line end follows it in the file.
    static constexpr qint64 mostDownloaded = mostBytes - 2;

    struct Reading {
        std::shared_ptr<const WebEntries> entries;
        bool isWhole; ///< if not, a file could not be read, and the entries are those of the files before it
    };

    explicit WebLists(const Globals& globals) : m_globals(globals) {}

    /// Reads the shared list and then the user's own. Never fails.
    Reading read() const;
    /// All bytes of the shared list; empty if there is no file, nothing if it is too large.
    std::optional<QByteArray> shared() const;
    /// Replaces the shared list by a body of any bytes and a line end. On a failure the old file stays whole.
    void replaceShared(QByteArray body) const;
    /// Adds a line after an empty one to the user's own list, which is made if there is none. Characters
    /// outside code page 1252 become "?". Fails with outOfMemory if the list would become too long. On a
    /// failure the old file stays whole.
    void add(const QString& name, const QString& address) const;
    /// Cuts the first occurrence of a line out of the user's own list (see WebFields::without), with a line
    /// end after each of the two parts. The whole file is kept as "\data\url_perso.bak" before, replacing the
    /// one that was kept there. Fails with subscript if the line does not occur, and with outOfMemory if the
    /// file is too large; on any failure the file stays whole.
    void remove(const QByteArray& line) const;

private:
    QString folder() const { return m_globals.AppPath + QStringLiteral("\\data"); }
    QString sharedPath() const { return folder() + QStringLiteral("\\url.dat"); }
    QString ownPath() const { return folder() + QStringLiteral("\\url_perso.dat"); }

    const Globals& m_globals;
};

} // namespace torvane
