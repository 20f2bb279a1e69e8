// SPDX-License-Identifier: MIT
// Changes of tags: the one place through which commands write to games. Many games share a sync, and what is
// changed can be undone.
#pragma once

#include "catalogue/TagWindow.h"
#include "tags/session/GameFiles.h"
#include "tags/undo/UndoFile.h"

namespace torvane {

class Session;

/// What becomes of the tag of a game.
struct TagEdit {
    GameFile game;
    std::optional<TagLine::Fields> tag; ///< the new one, whatever its Size; none to remove the present one
};

class TagEdits {
public:
    enum class Mode {
        forReal,
        rehearsal ///< nothing is written, and nothing that a killed run has left is removed
    };
    TagEdits(Mode mode, Session& session);

    /// What a selection sees of a game now.
    struct State {
        qint64 length = 0; ///< of the file, in bytes
        std::optional<TagWindow::Tag> tag;
        QByteArray end; ///< the last bytes of the file: all that the tag was taken from
    };
    /// The state of a game after all edits so far. What a killed run has left beside it is removed first.
    /// Fails if the file can't be read.
    State stateOf(const GameFile& game);
    /// Whether a game has a tag anywhere, also where a selection does not see it. Fails if the file can't be
    /// read.
    bool hasTag(const GameFile& game) const;

    /// Makes a change, with others, before the end of finish(). A failure is reported with the name of the
    /// game, which then is as it was. So is a game that is no longer in the state that the edit was made for:
    /// another program has saved it meanwhile.
    void add(const TagEdit& edit, const State& seen);
    /// Ends all changes that were added.
    void finish();

    bool isRehearsal() const { return m_mode == Mode::rehearsal; }

private:
    struct Waiting {
        QByteArray name; // of the game, as the user gave it
        struct stat info;
    };
    bool isWaiting(const QByteArray& path) const;
    void keep(const EndChanges::Results& next);

    Mode m_mode;
    Session& m_session;
    UndoFile m_undo;
    bool m_canUndo;
    bool m_hasWarned = false; // that this run can't be undone
    EndChanges m_changes;
    std::vector<Waiting> m_waiting;
};

} // namespace torvane
