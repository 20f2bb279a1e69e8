// SPDX-License-Identifier: MIT
// Finding the whole blocks of a log.
#include "UndoLog.h"
#include "platform/base/Paths.h"

namespace torvane {

namespace {
constexpr qint64 searchedAtOnce = 1 << 20; // in bytes
} // namespace

// Not all appended blocks need be whole: one of several runs may have been killed.
UndoLog::UndoLog(const QByteArray& path) {
    aboutFile(Paths::spelled(path), [&] {
        m_file = opened(uninterrupted(
            [&] { return open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW); }));
        if (bytesOf(m_file, 0, UndoBlock::firstLine.size()) != UndoBlock::firstLine) {
            throw RuntimeFailure(RuntimeFailure::typeMismatch);
        }
        for (auto at = nextMark(UndoBlock::firstLine.size()); at;) {
            const auto block = UndoBlock::at(m_file, *at);
            if (block) {
                m_count += static_cast<int>(block->entries.size());
                m_blocks.push_back(*at);
            }
            at = nextMark(block ? block->end : *at + 1);
        }
    });
}

std::optional<qint64> UndoLog::nextMark(qint64 from) const {
    for (;; from += searchedAtOnce) {
        const QByteArray some = bytesOf(m_file, from, searchedAtOnce + UndoBlock::mark.size() - 1);
        const qsizetype place = some.indexOf(UndoBlock::mark);
        if (place >= 0) return from + place;
        if (some.size() < searchedAtOnce) return std::nullopt;
    }
}

std::vector<UndoEntry> UndoLog::entries(size_t block) const {
    auto found = UndoBlock::at(m_file, m_blocks[block]);
    if (!found) throw RuntimeFailure(RuntimeFailure::deviceError);
    return std::move(found->entries);
}

bool UndoLog::visitBackwards(const std::function<bool(const Place&, const UndoEntry&)>& take) const {
    for (size_t block = m_blocks.size(); block-- > 0;) {
        const auto all = entries(block);
        for (size_t i = all.size(); i-- > 0;) {
            if (!take({block, i}, all[i])) return false;
        }
    }
    return true;
}

void UndoLog::visitBlocks(const std::function<bool(const Place&)>& isWanted,
                          const std::function<void(const std::vector<UndoEntry>&)>& take) const {
    for (size_t block = 0; block < m_blocks.size(); ++block) {
        auto all = entries(block);
        std::vector<UndoEntry> wanted;
        for (size_t i = 0; i < all.size(); ++i) {
            if (isWanted({block, i})) wanted.push_back(std::move(all[i]));
        }
        if (!wanted.empty()) take(wanted);
    }
}

} // namespace torvane
