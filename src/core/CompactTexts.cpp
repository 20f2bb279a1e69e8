// SPDX-License-Identifier: MIT
// The scrolling line, and tables of fixed texts.
#include "CompactTexts.h"
#include "platform/base/CodePage1252.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <array>

namespace torvane::CompactTexts {

namespace {
// What a reader takes for one character may be several: letters with accents of their own, or pairs.
qsizetype endOfCharacters(const QString& text, int count) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (int i = 0; i < count; ++i) {
        if (finder.toNextBoundary() < 0) return text.size();
    }
    return finder.position();
}

// Tags are text of the code page and get its capitals; other letters have those of Unicode. Halves of a pair
// stay, among them those that represent bytes of a file name.
QChar capital(QChar letter) {
    if (letter.isSurrogate()) return letter;
    if (!CodePage1252::holds(QStringView(&letter, 1))) return letter.toUpper();
    return CodePage1252::fromBytes(CodePage1252::upper(CodePage1252::toBytes(QStringView(&letter, 1))))
        .front();
}

struct Console {
    const char* piece;
    const char* text;
};
constexpr std::array consoles = {
    Console{"gb", "GB Classic"},  Console{"gba", "GB Advance"}, Console{"gbc", "GB Color"},
    Console{"agb", "GB Advance"}, Console{"cgb", "GB Color"},   Console{"zip", "ZIP File"},
    Console{"bin", "GB Advance"},
};
} // namespace

QString shown(const QString& name) {
    QString result = name;
    std::transform(result.cbegin(), result.cend(), result.begin(), capital);
    return result;
}

QString line(const QString& name) { return shown(name + QStringLiteral(" ··· ")); }

bool scrolls(const QString& line) { return endOfCharacters(line, visible) < line.size(); }

QString advanced(const QString& line) {
    const qsizetype first = endOfCharacters(line, 1);
    return line.sliced(first) + line.first(first);
}

QString seen(const QString& line) { return line.first(endOfCharacters(line, visible)); }

QString console(const QString& name, const NameCut& cut) {
    const QString piece = cut.secondPiece(name);
    const auto* const found = std::find_if(consoles.begin(), consoles.end(), [&](const Console& row) {
        return piece == QLatin1String(row.piece);
    });
    return found == consoles.end() ? QString() : QString::fromLatin1(found->text);
}

QString number(int place) {
    constexpr std::array<const char*, 5> signs = {"", "#000", "#00", "#0", "#"};
    const QString digits = QString::number(place);
    const auto length = static_cast<size_t>(digits.size());
    if (length == 6) return QStringLiteral("#W0W!");
    return (length < signs.size() ? QString::fromLatin1(signs[length]) : QString()) + digits;
}

} // namespace torvane::CompactTexts
