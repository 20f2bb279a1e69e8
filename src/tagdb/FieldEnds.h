// SPDX-License-Identifier: MIT
// Finds the ends of values in the database file: "§", CR and LF. A filtering looks at every byte of a file of
// perhaps a hundred megabytes, so 64 of them are compared at once where the processor can.
#pragma once

#include "FieldStarts.h"

#include <QByteArrayView>
#include <bit>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace torvane {

namespace FieldEnds {
constexpr qsizetype blockSize = 64;

#ifdef __SSE2__
inline quint64 in16(const char* bytes) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    const auto are = [&](char byte) { return _mm_cmpeq_epi8(block, _mm_set1_epi8(byte)); };
    const __m128i ends = _mm_or_si128(are(fieldSeparator), _mm_or_si128(are('\r'), are('\n')));
    return static_cast<quint64>(_mm_movemask_epi8(ends));
}

/// One bit for each of 64 bytes, the lowest for the first: whether it ends a value.
inline quint64 inBlock(const char* bytes) {
    return in16(bytes) | in16(bytes + 16) << 16 | in16(bytes + 32) << 32 | in16(bytes + 48) << 48;
}
#else
inline quint64 inBlock(const char* bytes) {
    quint64 ends = 0;
    for (qsizetype i = 0; i < blockSize; ++i) ends |= static_cast<quint64>(endsField(bytes[i])) << i;
    return ends;
}
#endif
} // namespace FieldEnds

/// Calls `visit` with the offset of each byte that ends a value.
template <typename Visitor>
void forEachFieldEnd(QByteArrayView bytes, Visitor&& visit) {
    qsizetype at = 0;
    for (; bytes.size() - at >= FieldEnds::blockSize; at += FieldEnds::blockSize) {
        for (quint64 ends = FieldEnds::inBlock(bytes.data() + at); ends != 0; ends &= ends - 1) {
            visit(at + std::countr_zero(ends));
        }
    }
    for (; at < bytes.size(); ++at) {
        if (endsField(bytes[at])) visit(at);
    }
}

/// The value that starts at an offset, which may be the end of the bytes.
inline QByteArrayView valueAt(QByteArrayView bytes, qsizetype start) {
    const QByteArrayView rest = bytes.sliced(start);
    qsizetype length = 0;
    for (; rest.size() - length >= FieldEnds::blockSize; length += FieldEnds::blockSize) {
        const quint64 ends = FieldEnds::inBlock(rest.data() + length);
        if (ends != 0) return rest.first(length + std::countr_zero(ends));
    }
    while (length < rest.size() && !endsField(rest[length])) ++length;
    return rest.first(length);
}

} // namespace torvane
