// SPDX-License-Identifier: MIT
// Grouping by size and ends, then by checksum.
#include "Twins.h"
#include "platform/base/File.h"
#include "platform/base/FileBlocks.h"

#include <QCryptographicHash>
#include <algorithm>
#include <map>
#include <set>

namespace torvane {

namespace {
QByteArray sumOf(const QByteArray& path, qint64 image) {
    const File file = File::ofReal(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    FileBlocks blocks(file.handle(), 0, image);
    for (QByteArrayView block = blocks.next(); !block.isEmpty(); block = blocks.next()) hash.addData(block);
    return hash.result();
}
} // namespace

void Twins::add(const GameFile& game, const Handle& file, qint64 image) {
    constexpr qint64 ends = 1024;
    const QByteArray bytes = bytesOf(file, 0, std::min(image, ends)) +
                             bytesOf(file, std::max(image - ends, qint64{0}), std::min(image, ends));
    m_games.push_back({image, qHash(bytes), game});
}

void Twins::find(Session& session, const Take& take) {
    std::stable_sort(m_games.begin(), m_games.end(),
                     [](const Game& one, const Game& other) { return one.key() < other.key(); });
    const Game* end = m_games.data() + m_games.size();
    for (const Game* from = m_games.data(); from != end && !session.isOver();) {
        const Game* to = std::find_if(from, end, [&](const Game& game) { return game.key() != from->key(); });
        if (to - from > 1 && from->image > 0) compare(from, to, session, take);
        from = to;
    }
}

void Twins::compare(const Game* from, const Game* to, Session& session, const Take& take) {
    std::map<QByteArray, const Game*> bySum;
    std::set<QByteArray> paths; // a game that was named twice is one
    for (const Game* game = from; game != to && !session.isOver(); ++game) {
        if (!paths.insert(game->file.path).second) continue;
        session.attempt(game->file.name, [&] {
            const auto [place, isNew] = bySum.insert({sumOf(game->file.path, game->image), game});
            if (!isNew) take(game->file, place->second->file);
        });
    }
}

} // namespace torvane
