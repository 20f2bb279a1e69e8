// SPDX-License-Identifier: MIT
// Tags from lists of known games: title, company and year of the entry that a game is.
#pragma once

#include "FoundGames.h"
#include "tags/edits/ChangeRows.h"
#include "tags/session/Session.h"

namespace torvane {

class NamedTags {
public:
    enum class Which { untagged, all };
    /// With --dry-run among the options it writes nothing, and prints what would change.
    NamedTags(Which which, const Arguments& given, Session& session);

    /// Gives each game the tag of its entry, as the options ask for it: what the list has, and what else is
    /// there. A text that no tag can hold, or several names for one game, are reported with the game, which
    /// stays as it is. Members of archives are skipped.
    void write(const std::vector<FoundGame>& games);

private:
    void writeOne(const FoundGame& game);

    Which m_which;
    Session& m_session;
    TagEdits m_edits;
    ChangeRows m_rows;
    QByteArray m_today;
};

} // namespace torvane
