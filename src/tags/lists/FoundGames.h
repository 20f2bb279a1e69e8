// SPDX-License-Identifier: MIT
// The user's games, and which entries of the lists each of them is.
#pragma once

#include "EntryPack.h"
#include "tags/images/GameArchive.h"
#include "tags/session/GameFiles.h"

#include <QMultiHash>

namespace torvane {

/// A game of the user's: a file, or a member of an archive.
struct FoundGame {
    QByteArray name;   ///< of the file, as GameFile has it
    QByteArray folder; ///< what its path has before that; games that are added together share it
    QByteArray member; ///< empty for a file
    /// Its possible images. Of a member that was not unpacked this is what the directory says.
    std::vector<SummedImage> images;
    EntryPack names;        ///< the entries that it is, without checksums: packed, as there may be many games
    bool isDoubled = false; ///< it is several entries, or others are the same entry

    GameFile file() const { return {name, folder + name}; }
    /// The entries that it is, without their checksums; the first ones of very many.
    std::vector<ListEntry> entries() const;
};

class FoundGames {
public:
    void add(FoundGame game);
    /// A file could not be read, or not all of it: what games there are is unknown.
    void addUnread() { ++m_unread; }
    int unread() const { return m_unread; }
    /// Compares an entry with all games by its strongest checksum and its size. False if none is it.
    bool match(const ListEntry& entry);

    const std::vector<FoundGame>& all() const { return m_games; }

private:
    struct Place {
        quint32 game;
        quint32 image;
    };
    std::vector<size_t> gamesOf(const ListEntry& entry) const;

    std::vector<FoundGame> m_games;
    int m_unread = 0;
    QMultiHash<QByteArray, Place> m_places; // by checksum
};

} // namespace torvane
