// SPDX-License-Identifier: MIT
// The possible orders of deeds.
#include "Shelf.h"

namespace torvane::faults {

namespace {
// Overwrites a range in place; a longer file keeps its remaining bytes.
QByteArray over(const QByteArray& old, const QByteArray& bytes, qsizetype from, qsizetype to) {
    QByteArray result = old;
    if (result.size() < to) result.append(to - result.size(), '\0');
    return result.replace(from, to - from, bytes.sliced(from, to - from));
}

void act(Shelf& shelf, Deed deed, const QByteArray& bytes) {
    if (deed == Deed::replace) shelf.game = bytes;
    if (!shelf.game) return;
    switch (deed) {
    case Deed::rewrite: shelf.game = over(*shelf.game, bytes, 0, bytes.size()); return;
    case Deed::rewriteFromZero: shelf.game = bytes; return;
    case Deed::beginRewriting: shelf.game = over(*shelf.game, bytes, 0, endOf(bytes)); return;
    case Deed::endRewriting: shelf.game = over(*shelf.game, bytes, endOf(bytes), bytes.size()); return;
    case Deed::beginFromZero: shelf.game = bytes.first(endOf(bytes)); return;
    case Deed::renameAway: shelf.away = std::move(shelf.game); [[fallthrough]];
    case Deed::remove: shelf.game.reset(); return;
    default: return;
    }
}

bool isHalf(Deed deed) { return deed == Deed::beginRewriting || deed == Deed::beginFromZero; }

// Applies our operation; false if it can't be done.
bool change(Shelf& shelf, const Transform& ours) {
    const Content fresh = shelf.game ? ours(*shelf.game) : Content();
    if (!fresh) return false;
    shelf.backup = shelf.game;
    shelf.game = fresh;
    return true;
}

// With our operation before the deed of index `place`; beyond the last deed, without it.
std::optional<Shelf> withOurs(Shelf shelf, const Deeds& deeds, const std::vector<QByteArray>& versions,
                              const Transform& ours, int place) {
    for (int i = 0; i <= deeds.count; ++i) {
        if (i == place && !change(shelf, ours)) return std::nullopt;
        if (i == deeds.count) break;
        const Errand& errand = deeds.errands.at(static_cast<size_t>(i));
        act(shelf, errand.deed, versions.at(static_cast<size_t>(errand.version)));
    }
    return shelf;
}

// Our file may have had the name for a moment, replacing one that the other program had just put there. If
// that program then removes or renames it, it hits our file; its own file gets the name back, since nobody
// may lose it. If it then writes in place, it writes to our file, as it would to any longer file.
std::vector<Shelf> withoutOurs(const Shelf& first, const Deeds& deeds,
                               const std::vector<QByteArray>& versions, const Transform& ours) {
    const Deed last = deeds.errands[1].deed;
    std::vector<Shelf> all{*withOurs(first, deeds, versions, ours, deeds.count + 1)};
    if (deeds.count < 2 || deeds.errands[0].deed != Deed::replace) return all;
    const Content put = versions.at(static_cast<size_t>(deeds.errands[0].version));
    if (last == Deed::remove) all.push_back({put, {}, {}});
    if (last == Deed::rewrite) {
        const QByteArray& bytes = versions.at(static_cast<size_t>(deeds.errands[1].version));
        all.push_back({over(*ours(*first.game), bytes, 0, bytes.size()), {}, {}});
    }
    if (last == Deed::renameAway) all.push_back({put, ours(*first.game), {}});
    return all;
}
} // namespace

std::vector<Shelf> possible(const Content& atFirst, const Deeds& deeds,
                            const std::vector<QByteArray>& versions, const Transform& ours, bool isSuccess) {
    const Shelf first{atFirst, {}, {}};
    if (!isSuccess) return withoutOurs(first, deeds, versions, ours);
    std::vector<Shelf> all;
    for (int place = 0; place <= deeds.count; ++place) {
        if (place > 0 && isHalf(deeds.errands.at(static_cast<size_t>(place) - 1).deed)) continue;
        const auto shelf = withOurs(first, deeds, versions, ours, place);
        if (shelf) all.push_back(*shelf);
    }
    return all;
}

} // namespace torvane::faults
