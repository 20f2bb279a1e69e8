// SPDX-License-Identifier: MIT
// An undo at work: puts the old ends of games back where the new ones still are. What it puts back is kept in
// a log of its own, which replaces that of the last run once all of it was undone. After an interruption the
// next undo goes on.
#pragma once

#include "UndoFaults.h"
#include "UndoFolder.h"

namespace torvane {

class Session;

class UndoRun {
public:
    explicit UndoRun(Session& session);

    /// Undoes the last run. Games that can't be put back are reported; they stay in the log. Fails if the log
    /// can't be read.
    void run();

    /// The old end of a game that ends with the new one; nothing if it has the old end already. Fails if it
    /// has neither.
    static std::optional<EndChanges::End> oldEnd(const Handle& game, const UndoEntry& entry);

private:
    struct Waiting {
        UndoLog::Place place;
        QByteArray path;
    };
    bool open();
    bool putBack(const UndoLog::Place& place, const UndoEntry& entry);
    void finishBatch();
    void keep(const EndChanges::Results& next);
    void beginRedo(const QByteArray& block);
    void keepFaults();
    void end(bool isComplete);
    QByteArray last() const { return UndoFolder::last(m_folder); }
    QByteArray redo() const { return UndoFolder::redo(m_folder); }

    Session& m_session;
    QByteArray m_folder;
    std::optional<UndoLog> m_log;
    Handle m_redo;             // the log of what is put back; open once there is any
    bool m_hasPutBack = false; // by this undo, or by one that was interrupted
    EndChanges m_changes;
    std::vector<Waiting> m_waiting;
    UndoFaults m_faults;
};

} // namespace torvane
