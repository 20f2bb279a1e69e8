// SPDX-License-Identifier: MIT
// The changes of the last run, read for an undo.
#pragma once

#include "UndoBlock.h"

namespace torvane {

class UndoLog {
public:
    /// Fails if the file can't be read or is none of these. What a killed run has written in part is ignored:
    /// those changes were not made.
    explicit UndoLog(const QByteArray& path);

    /// Where a change is: the number of its block, and its own number in that.
    using Place = std::pair<size_t, size_t>;

    /// The open file.
    const Handle& file() const { return m_file; }
    /// How many changes there are.
    int count() const { return m_count; }
    /// Hands over the changes, the latest first, since a game may have been changed twice. Ends early if
    /// `take` returns false, and then returns false. Fails if one can't be read.
    bool visitBackwards(const std::function<bool(const Place&, const UndoEntry&)>& take) const;
    /// The changes at these places, in the order in which they were made, block by block.
    void visitBlocks(const std::function<bool(const Place&)>& isWanted,
                     const std::function<void(const std::vector<UndoEntry>&)>& take) const;

private:
    std::vector<UndoEntry> entries(size_t block) const;
    std::optional<qint64> nextMark(qint64 from) const;

    Handle m_file;
    std::vector<qint64> m_blocks; // where they begin
    int m_count = 0;
};

} // namespace torvane
