// SPDX-License-Identifier: MIT
// What decides how games are to be read, of all entries of the lists: sizes, kinds of checksums, and the CRCs
// that the directories of archives can be compared with. Eight bytes for an entry, whatever it is called.
#pragma once

#include "ListEntry.h"

#include <deque>

#include <vector>

namespace torvane {

class ListIndex {
public:
    /// More entries than this need more memory than they are worth; the largest collections of lists have a
    /// million.
    static constexpr size_t mostEntries = 4'000'000;

    void add(const ListEntry& entry);
    /// Adds all entries of another one, which is not closed.
    void add(ListIndex&& other);
    size_t count() const { return m_count; }
    /// To be called after the last entry, before the questions.
    void close();

    /// Of each entry the strongest kind that it has.
    WantedSums wanted() const { return m_wanted; }
    /// Whether an image of so many bytes may be in the lists. It may be wrong in saying yes.
    bool mayHave(qint64 size) const { return m_hasSizeless || m_sizes[bitOf(size)]; }
    /// Whether a member with this claim of a size in bytes and a CRC is one certain entry. Images that are
    /// tagged, or that the lists know by other checksums alone, have to be unpacked.
    bool isCertain(qint64 size, const QByteArray& crc) const;
    /// Whether a member may be an entry although its claim is none: one without a CRC or with a doubled one,
    /// or one that has got a tag.
    bool mayHide(qint64 size, const QByteArray& crc) const;

private:
    static constexpr size_t sizeBits = 1 << 20;
    static size_t bitOf(qint64 size);
    static quint64 printOf(qint64 size, const QByteArray& crc);
    size_t countOf(quint64 print) const;

    size_t m_count = 0;
    WantedSums m_wanted;
    bool m_hasSizeless = false;
    bool m_hasOthers = false; // entries without a CRC
    std::vector<bool> m_sizes = std::vector<bool>(sizeBits);
    std::deque<quint64> m_prints; // sizes and CRCs; sorted once it is closed
};

} // namespace torvane
