// SPDX-License-Identifier: MIT
// Matching names against the patterns of file lists.
#include "NamePattern.h"
#include "NativeText.h"

#include <QStringList>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstring>

namespace torvane {

namespace {
bool isAsciiLiteral(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() < 0x80 && c != QLatin1Char('*') && c != QLatin1Char('?');
    });
}

char lower(char c) { return static_cast<char>(c | (static_cast<uchar>(c - 'A') < 26 ? 0x20 : 0)); }

// The last eight bytes of a name in lower case, with zeros before a shorter one. Most patterns ask only for
// these, and one number is compared faster than a text.
quint64 endOf(QByteArrayView name) {
    std::array<char, 16> bytes = {}; // as many as the compiler lowers in one step
    const size_t count = std::min(bytes.size(), static_cast<size_t>(name.size()));
    if (count == bytes.size()) {
        std::memcpy(bytes.data(), name.end() - bytes.size(), bytes.size());
    } else {
        std::copy(name.end() - count, name.end(), bytes.end() - count); // an empty name may be null
    }
    for (char& c : bytes) c = lower(c);
    return qFromBigEndian<quint64>(bytes.end() - sizeof(quint64));
}

// The bits of the last bytes in such a number.
quint64 lastBytes(qsizetype count) {
    return ~quint64{0} >> (sizeof(quint64) - static_cast<size_t>(count)) * 8;
}

// The usual greedy matching: on a mismatch the last "*" takes one character more. Linear in practice and
// quadratic at worst, so no pattern can hang a list.
bool wildcardMatches(QStringView form, QStringView name) {
    qsizetype f = 0;
    qsizetype n = 0;
    qsizetype star = -1;
    qsizetype resume = 0;
    while (n < name.size()) {
        if (f < form.size() && form[f] == QLatin1Char('*')) {
            star = f++;
            resume = n;
        } else if (f < form.size() && (form[f] == QLatin1Char('?') || form[f] == name[n])) {
            ++f;
            ++n;
        } else if (star >= 0) {
            f = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (f < form.size() && form[f] == QLatin1Char('*')) ++f;
    return f == form.size();
}
} // namespace

NamePattern::NamePattern(const QString& pattern) {
    const QString all = pattern.isEmpty() ? QStringLiteral("*") : pattern;
    for (const QString& piece : all.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString form = piece.trimmed() == QStringLiteral("*.*") ? QStringLiteral("*")
                                                                      : NativeText::folded(piece.trimmed());
        const qsizetype length = form.size() - 1;
        const bool isEnding = length > 0 && length <= qsizetype{sizeof(quint64)} &&
                              form.front() == QLatin1Char('*') && isAsciiLiteral(QStringView(form).sliced(1));
        m_pieces.push_back(
            {isEnding ? endOf(form.sliced(1).toLatin1()) : 0, isEnding ? lastBytes(length) : 0, form});
    }
}

bool NamePattern::matches(QByteArrayView name) const {
    const quint64 end = endOf(name);
    return std::any_of(m_pieces.begin(), m_pieces.end(), [&](const Piece& piece) {
        if (piece.endingBytes != 0) return (end & piece.endingBytes) == piece.ending;
        return wildcardMatches(piece.form, NativeText::folded(NativeText::fromNative(name)));
    });
}

} // namespace torvane
