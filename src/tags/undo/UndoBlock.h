// SPDX-License-Identifier: MIT
// The form of the logs that an undo needs: a line that says what the file is, and blocks of changes. Each
// block has a mark, by which it is found after one that is damaged, and a hash.
#pragma once

#include "platform/base/EndChanges.h"

#include <optional>
#include <vector>

namespace torvane {

/// The end of a game, before and after a change.
struct UndoEntry {
    QByteArray path; ///< real and absolute
    qint64 start = 0;
    QByteArray before, after;
};

namespace UndoBlock {

/// What a log begins with.
inline const QByteArray firstLine = QByteArrayLiteral("Torvane undo 2\n");
inline const QByteArray mark = QByteArrayLiteral("\nchanges\n");
constexpr qint64 sizeSize = 8;
constexpr qint64 hashSize = 32;
/// Of the entries in a block: a damaged size must not exhaust memory.
constexpr qint64 largest = 64 << 20;

/// The entries of changes that are going to be made.
std::vector<UndoEntry> entriesOf(const EndChanges::Results& changes);
/// The bytes of a block.
QByteArray packed(const std::vector<UndoEntry>& entries);
/// The entries of the block at a position, and the position after it; nothing if no whole block is there.
struct Found {
    std::vector<UndoEntry> entries;
    qint64 end = 0;
};
std::optional<Found> at(const Handle& log, qint64 position);
/// Appends a block, in one call since other runs may append, too, and syncs it. The log is open with
/// O_APPEND.
void append(const Handle& log, const QByteArray& block);

} // namespace UndoBlock
} // namespace torvane
