// SPDX-License-Identifier: MIT
// Reads a file for identify: as much of it as the lists make necessary.
#pragma once

#include "FoundGames.h"
#include "ListIndex.h"
#include "tags/images/GameTasks.h"

namespace torvane {

class IdentifyTask : public GameTask {
public:
    /// Members of archives are judged by the archive's directory where that is enough, or all unpacked.
    enum class Depth { asNeeded, unpackAll };
    IdentifyTask(const GameFile& game, Session& session, const ListIndex& index, Depth depth,
                 FoundGames& games)
        : GameTask(game, session), m_index(index), m_depth(depth), m_games(games) {}

private:
    void readFile() override;
    void readArchive() override;
    void take() override;
    FoundGame found(const QByteArray& member = {}) const;
    std::vector<qint64> lengthsOf(const ImageEnd& end) const;

    const ListIndex& m_index;
    Depth m_depth;
    FoundGames& m_games;
    std::vector<FoundGame> m_found;
};

} // namespace torvane
