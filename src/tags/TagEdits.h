// SPDX-License-Identifier: MIT
// Changes of tags, one game after the other: the one place through which commands write to games. How the
// bytes reach a file, and how many files share a sync, is decided here and below.
#pragma once

#include "GameFiles.h"
#include "catalogue/ID3.h"
#include "catalogue/TagWindow.h"

#include <set>

namespace torvane {

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
    TagEdits(Mode mode, Reports& reports);

    /// What a selection sees of a game now.
    struct State {
        qint64 length = 0; ///< of the file, in bytes
        std::optional<TagWindow::Tag> tag;
    };
    /// The state of a game after all edits so far. What a killed run has left beside it is removed first.
    /// Fails if the file can't be read.
    State stateOf(const GameFile& game);
    /// Whether a game has a tag anywhere, also where a selection does not see it. Fails if the file can't be
    /// read.
    bool hasTag(const GameFile& game) const;

    /// Makes a change, at once or before the end of finish(). A failure is reported with the name of the
    /// game, which then is as it was.
    void add(const TagEdit& edit);
    /// Ends all changes that were added.
    void finish() {}

    bool isRehearsal() const { return m_mode == Mode::rehearsal; }

private:
    // The tag module asks nothing when it saves or strips.
    struct NoBoxes : MessageBoxes {
        int MsgBox(const QString&, int, const QString&) override { return MsgBoxFlags::answerOk; }
    };
    void sweepBeside(const QByteArray& path);
    void write(const TagEdit& edit);

    Mode m_mode;
    Reports& m_reports;
    Globals m_globals;
    LanguageTables m_language{m_globals};
    NoBoxes m_boxes;
    ID3 m_id3{m_globals, m_language, m_boxes};
    std::set<QByteArray> m_swept; // folders
};

} // namespace torvane
