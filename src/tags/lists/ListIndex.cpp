// SPDX-License-Identifier: MIT
// Collecting and looking up.
#include "ListIndex.h"
#include "catalogue/ImageEnd.h"

#include <QtEndian>
#include <algorithm>

namespace torvane {

namespace {
constexpr auto crcKind = static_cast<size_t>(SumKind::crc32);
constexpr int crcBits = 32;
} // namespace

// Sizes of games are mostly multiples of large powers of two, so all of their bits have to count.
size_t ListIndex::bitOf(qint64 size) {
    const quint64 mixed = static_cast<quint64>(size) * 0x9E3779B97F4A7C15U;
    return mixed >> 44U;
}

quint64 ListIndex::printOf(qint64 size, const QByteArray& crc) {
    return static_cast<quint64>(size) << crcBits | qFromBigEndian<quint32>(crc.constData());
}

void ListIndex::add(const ListEntry& entry) {
    ++m_count;
    if (const auto kind = ListEntry::commonKind(entry.sums, entry.sums))
        m_wanted.set(static_cast<size_t>(*kind));
    if (entry.size < 0) m_hasSizeless = true;
    if (entry.size >= 0) m_sizes[bitOf(entry.size)] = true;
    const QByteArray& crc = entry.sums[crcKind];
    if (crc.isEmpty() || entry.size < 0) {
        m_hasOthers = true;
    } else {
        m_prints.push_back(printOf(entry.size, crc));
    }
}

void ListIndex::add(ListIndex&& other) {
    if (m_count == 0) {
        *this = std::move(other);
        return;
    }
    m_count += other.m_count;
    m_wanted |= other.m_wanted;
    m_hasSizeless = m_hasSizeless || other.m_hasSizeless;
    m_hasOthers = m_hasOthers || other.m_hasOthers;
    for (size_t bit = 0; bit < sizeBits; ++bit) {
        if (other.m_sizes[bit]) m_sizes[bit] = true;
    }
    m_prints.insert(m_prints.end(), other.m_prints.begin(), other.m_prints.end());
}

void ListIndex::close() { std::sort(m_prints.begin(), m_prints.end()); }

size_t ListIndex::countOf(quint64 print) const {
    const auto [first, last] = std::equal_range(m_prints.begin(), m_prints.end(), print);
    return static_cast<size_t>(last - first);
}

bool ListIndex::isCertain(qint64 size, const QByteArray& crc) const {
    return size >= 0 && !crc.isEmpty() && countOf(printOf(size, crc)) == 1;
}

bool ListIndex::mayHide(qint64 size, const QByteArray& crc) const {
    if (size < 0 || crc.isEmpty() || m_hasSizeless) return true;
    if (m_hasOthers && mayHave(size)) return true;
    if (countOf(printOf(size, crc)) > 1) return true;
    for (qint64 image = std::max<qint64>(size - ImageEnd::tailSize, 0); image < size; ++image) {
        if (mayHave(image)) return true;
    }
    return false;
}

} // namespace torvane
