// SPDX-License-Identifier: MIT
// The game in an archive, unpacked into a folder of its own below "ziptemp" for as long as this object lives.
// What a killed process has left there is removed by the next one.
#pragma once

#include "catalogue/ZipMembers.h"
#include "platform/base/SystemCalls.h"

namespace torvane {

class UnpackedGame {
public:
    /// Unpacks the archive at a real path. `member` is the file name of the game that is meant; empty if it
    /// is the only one. `goesOn` ends the work early.
    UnpackedGame(const Globals& globals, const QByteArray& archive, const QByteArray& member,
                 const std::function<bool()>& goesOn);
    ~UnpackedGame() { m_temp.DeleteTemp(m_name); }
    UnpackedGame(const UnpackedGame&) = delete;
    UnpackedGame& operator=(const UnpackedGame&) = delete;

    /// Why there is no game, without a line end; empty if there is one.
    const QByteArray& fault() const { return m_fault; }
    /// The spelled path of the game.
    const QString& path() const { return m_path; }

private:
    void sweep() const;
    void hold();
    void choose(const QByteArray& member);

    const Globals& m_globals;
    ZipTemp m_temp;
    QString m_name; // of the folder: another command or a window may unpack the same archive
    Handle m_hold;  // shows that the folder is in use
    QString m_path;
    QByteArray m_fault;
};

} // namespace torvane
