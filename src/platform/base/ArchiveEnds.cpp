// SPDX-License-Identifier: MIT
// Finding the end records of archives (PKWARE's APPNOTE.TXT, 4.3.14 to 4.3.16).
#include "ArchiveEnds.h"

#include <QtEndian>
#include <algorithm>
#include <optional>

namespace torvane {

namespace {
constexpr char endSign[] = "PK\5\6";
constexpr qsizetype endEntries = 10;
constexpr qsizetype endDirectory = 16;
constexpr qsizetype endSize = 22;

constexpr char locatorSign[] = "PK\6\7";
constexpr qsizetype locatorRecord = 8;
constexpr qsizetype locatorSize = 20;

constexpr char recordSign[] = "PK\6\6";
constexpr qsizetype recordEntries = 32;
constexpr qsizetype recordDirectory = 48;
constexpr qsizetype recordSize = 56;

// An end record with the longest comment, and the ZIP64 locator before it.
constexpr qint64 tailSize = locatorSize + endSize + 65535;

template <typename Number>
Number numberAt(QByteArrayView bytes, qsizetype at) {
    return qFromLittleEndian<Number>(bytes.data() + at);
}

std::optional<ArchiveEnd> recordOf(const File& file, QByteArrayView locator) {
    const auto at = numberAt<quint64>(locator, locatorRecord);
    if (at > static_cast<quint64>(file.length())) return std::nullopt;
    const QByteArray record = file.readAt(static_cast<qint64>(at), recordSize);
    if (record.size() < recordSize || !record.startsWith(recordSign)) return std::nullopt;
    return ArchiveEnd{numberAt<quint64>(record, recordEntries), numberAt<quint64>(record, recordDirectory),
                      true};
}

std::optional<ArchiveEnd> endAt(const File& file, QByteArrayView tail, qsizetype at) {
    if (at + endSize > tail.size()) return std::nullopt;
    if (at >= locatorSize) {
        const QByteArrayView locator = tail.sliced(at - locatorSize, locatorSize);
        if (locator.startsWith(locatorSign)) return recordOf(file, locator);
    }
    return ArchiveEnd{numberAt<quint16>(tail, at + endEntries), numberAt<quint32>(tail, at + endDirectory),
                      false};
}
} // namespace

std::vector<ArchiveEnd> archiveEnds(const File& file) {
    const QByteArray tail = file.readAt(std::max<qint64>(0, file.length() - tailSize), tailSize);
    std::vector<ArchiveEnd> ends;
    for (qsizetype at = tail.indexOf(endSign); at >= 0; at = tail.indexOf(endSign, at + 1)) {
        if (const auto end = endAt(file, tail, at)) ends.push_back(*end);
    }
    return ends;
}

} // namespace torvane
