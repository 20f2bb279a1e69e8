// SPDX-License-Identifier: MIT
// Matching names against the patterns of file lists.
#include "NamePattern.h"
#include "NativeText.h"

#include <QStringList>
#include <algorithm>

namespace torvane {

namespace {
bool isAsciiLiteral(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() < 0x80 && c != QLatin1Char('*') && c != QLatin1Char('?');
    });
}

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// Compares the last letter first, because most endings differ there.
bool endsWith(QByteArrayView name, const QByteArray& ending) {
    return name.size() >= ending.size() && lower(name.back()) == ending.back() &&
           std::equal(ending.begin(), ending.end(), name.end() - ending.size(),
                      [](char wanted, char c) { return wanted == lower(c); });
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
        const bool isEnding = form.size() > 1 && form.front() == QLatin1Char('*') &&
                              isAsciiLiteral(QStringView(form).sliced(1));
        m_pieces.push_back({isEnding ? form.sliced(1).toLatin1() : QByteArray(), form});
    }
}

bool NamePattern::matches(QByteArrayView name) const {
    return std::any_of(m_pieces.begin(), m_pieces.end(), [&](const Piece& piece) {
        if (!piece.ending.isEmpty()) return endsWith(name, piece.ending);
        return wildcardMatches(piece.form, NativeText::folded(NativeText::fromNative(name)));
    });
}

} // namespace torvane
