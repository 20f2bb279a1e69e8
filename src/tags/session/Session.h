// SPDX-License-Identifier: MIT
// What a command works with: the library, its output and its messages, and the loop over games that all
// commands share.
#pragma once

#include "GameFiles.h"
#include "Reports.h"
#include "core/Pieces.h"
#include "tags/rows/Output.h"
#include "tags/rows/RowWriter.h"

#include <optional>
#include <set>

namespace torvane {

class Interruption;

class Session {
public:
    /// `folder`: the home that the user has asked for; empty for the usual one.
    Session(const QByteArray& folder, Output& output, Reports& reports, const Interruption& interruption)
        : m_folder(folder), m_output(output), m_reports(reports), m_interruption(interruption) {}

    Output& output() { return m_output; }
    Reports& reports() { return m_reports; }

    /// The home of the program, spelled. It is only looked for, never laid out.
    const QString& home();
    /// The real path of the folder of games, whether it is there or not.
    const QByteArray& library();
    /// The real path of the folder of backups in it.
    QByteArray backups() { return library() + "/data/backup"; }
    /// Where the user has names of files cut. The settings are read when it is first asked for, which only
    /// the thread of the session may do; if they can't be read, names are cut at every dot.
    const NameCut& names();
    /// The games that the operands name.
    GameFiles games(const QByteArrayList& operands);
    /// Finishes or undoes what a killed run has left in the folder of a game, before the game is read; once a
    /// folder. A folder that can't be written to stays as it is.
    void sweepBeside(const QByteArray& path);
    /// Leaves such things alone from now on: for a rehearsal, which changes nothing.
    void leaveLeftovers() { m_sweeps = false; }
    /// Whether the command has to end before its work is done: the user wants it to, or nobody gets its
    /// output.
    bool isOver() const;
    /// Does some work for a game or another file. A failure is reported with its name, and goes no further.
    void attempt(const QByteArray& name, const std::function<void()>& work);
    /// Hands over one game after the other, with nothing of a killed run beside it, until there are no more
    /// or the command has to end.
    void visit(const GameFiles& games, const std::function<void(const GameFile&)>& take);
    /// Works on one game after the other. `rows`: what is printed meanwhile; null for nothing.
    void eachGame(const GameFiles& games, const std::function<void(const GameFile&)>& work,
                  const RowWriter* rows = nullptr);

    /// What the process ends with, for a command that has a status of its own; nothing for the usual ones.
    std::optional<int> status() const { return m_status; }
    void setStatus(int status) { m_status = status; }

private:
    QByteArray m_folder;
    QString m_home;
    QByteArray m_library;
    std::optional<NameCut> m_names;
    Output& m_output;
    Reports& m_reports;
    const Interruption& m_interruption;
    std::optional<int> m_status;
    bool m_sweeps = true;
    QByteArray m_lastSwept;       // the folder of the last game, which most often is that of the next one
    std::set<QByteArray> m_swept; // folders
};

} // namespace torvane
