// SPDX-License-Identifier: MIT
// A game of a list of known games, as preservation groups publish them.
#pragma once

#include "tags/images/SumMaker.h"

#include <functional>

#include <vector>

namespace torvane {

/// All texts are UTF-8, and empty where the list has none.
struct ListEntry {
    QByteArray title;   ///< the game's description or, without one, its name
    QByteArray rom;     ///< the name of the file
    QByteArray company; ///< who has made or published it
    QByteArray year;
    qint64 size = -1; ///< of the image in bytes; below 0 if the list has none
    Sums sums;

    /// Takes a value of the file by its name in lists: name, size, crc, md5, sha1 or sha256; others are
    /// skipped, and so are values that are empty or, but for a name, "-". Gives why the value is of no use,
    /// without a line end; empty if it is taken.
    QByteArray set(const QByteArray& name, const QByteArray& value);
    bool hasSum() const;
    /// The best kind of the checksums that both have; none if there is no common one.
    static std::optional<SumKind> commonKind(const Sums& one, const Sums& other);
};

/// The game that a reader is in. A file that the list calls unknown ("nodump"), or that has no checksum,
/// can't be found and is no entry.
class ListGame {
public:
    using Take = std::function<void(const ListEntry&)>;
    explicit ListGame(Take take) : m_take(std::move(take)) {}

    QByteArray name, description, manufacturer, publisher, year;

    void add(const ListEntry& rom);
    /// Hands its entries over, and begins anew.
    void end();

private:
    void handOver();

    Take m_take;
    std::vector<ListEntry> m_roms;
};

} // namespace torvane
