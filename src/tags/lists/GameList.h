// SPDX-License-Identifier: MIT
// A file with a list of known games. Its entries are wanted several times: those of a usual list are kept in
// little memory, and a large one is read again.
#pragma once

#include "EntryPack.h"
#include "platform/base/File.h"

namespace torvane {

class GameList {
public:
    /// Opens the file at a real path. Fails if it can't be read.
    explicit GameList(const QByteArray& path);

    struct Reading {
        ListGame::Take entry;
        /// A flawed entry: the number of its line, and why. It is left out.
        std::function<void(qint64 line, const QByteArray& reason)> flaw;
        std::function<bool()> isOver; ///< asked now and then; the reading ends if it is true
    };
    /// The first reading. Gives why the list is broken, with the number of the line, without a line end;
    /// empty if it was read to its end. Fails if the file can't be read.
    QByteArray read(const Reading& reading);
    /// Hands all entries over once more, after a reading without a fault. Fails if the file has to be read
    /// and can't be, or if it has changed.
    void each(const ListGame::Take& take) const;

    /// So many bytes of entries are kept.
    static constexpr size_t mostKept = 24 << 20;

private:
    QByteArray readAll(const Reading& reading) const;

    File m_file;
    struct stat m_state;
    EntryPack m_kept;
    bool m_isKept = true;
};

} // namespace torvane
