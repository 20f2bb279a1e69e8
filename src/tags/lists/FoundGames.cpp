// SPDX-License-Identifier: MIT
// Looking games up by checksum.
#include "FoundGames.h"

#include <algorithm>

namespace torvane {

namespace {
// A list that names one game a million times needs no memory for that.
constexpr size_t mostNames = 16;

bool isSameName(const ListEntry& one, const ListEntry& other) {
    return one.title == other.title && one.rom == other.rom;
}

void addEntry(FoundGame& game, const ListEntry& entry) {
    const std::vector<ListEntry> entries = game.entries();
    const auto isIt = [&](const ListEntry& known) { return isSameName(known, entry); };
    if (entries.size() >= mostNames || std::any_of(entries.begin(), entries.end(), isIt)) return;
    ListEntry name = entry;
    name.sums = {};
    game.names.add(name);
    game.isDoubled = game.isDoubled || !entries.empty();
}
} // namespace

std::vector<ListEntry> FoundGame::entries() const {
    std::vector<ListEntry> entries;
    names.each([&](const ListEntry& entry) { entries.push_back(entry); });
    return entries;
}

void FoundGames::add(FoundGame game) {
    for (size_t image = 0; image < game.images.size(); ++image) {
        for (const QByteArray& sum : game.images[image].sums) {
            if (!sum.isEmpty())
                m_places.insert(sum, {static_cast<quint32>(m_games.size()), static_cast<quint32>(image)});
        }
    }
    if (!m_games.empty() && m_games.back().folder == game.folder) game.folder = m_games.back().folder;
    m_games.push_back(std::move(game));
}

// Ascending, each once.
std::vector<size_t> FoundGames::gamesOf(const ListEntry& entry) const {
    std::vector<size_t> games;
    for (const QByteArray& sum : entry.sums) {
        if (sum.isEmpty()) continue;
        for (auto found = m_places.constFind(sum); found != m_places.constEnd() && found.key() == sum;
             ++found) {
            const SummedImage& image = m_games[found->game].images[found->image];
            const auto kind = ListEntry::commonKind(entry.sums, image.sums);
            const bool isSum = kind && &entry.sums[static_cast<size_t>(*kind)] == &sum;
            if (isSum && (entry.size < 0 || entry.size == image.length)) games.push_back(found->game);
        }
    }
    std::sort(games.begin(), games.end());
    games.erase(std::unique(games.begin(), games.end()), games.end());
    return games;
}

bool FoundGames::match(const ListEntry& entry) {
    const std::vector<size_t> games = gamesOf(entry);
    for (const size_t game : games) {
        m_games[game].isDoubled = m_games[game].isDoubled || games.size() > 1;
        addEntry(m_games[game], entry);
    }
    return !games.empty();
}

} // namespace torvane
