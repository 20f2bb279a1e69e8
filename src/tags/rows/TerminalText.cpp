// SPDX-License-Identifier: MIT
// Characters and their widths.
#include "TerminalText.h"
#include "platform/base/NativeText.h"

#include <QList>
#include <QString>
#include <algorithm>
#include <cwchar>

namespace torvane::TerminalText {

namespace {
bool isPlainAscii(const QByteArray& bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= ' ' && c != '\x7F'; });
}

int widthOf(char32_t character) { return wcwidth(static_cast<wchar_t>(character)); }
} // namespace

QByteArray shown(const QByteArray& bytes) {
    if (isPlainAscii(bytes)) return bytes;
    QString text = NativeText::fromNative(bytes);
    text.replace(QChar(u'\xDC5C'), QLatin1Char('\\')); // a backslash in a name
    QString result;
    for (const char32_t character : text.toUcs4()) {
        const bool isShown = character != QChar::ReplacementCharacter && widthOf(character) >= 0;
        result += isShown ? QString::fromUcs4(&character, 1) : QStringLiteral("?");
    }
    return result.toUtf8();
}

QByteArray word(const Field& field) {
    switch (field.kind) {
    case Field::Kind::yes: return "yes";
    case Field::Kind::no: return "no";
    default: return shown(field.bytes);
    }
}

int width(const QByteArray& shown) {
    if (isPlainAscii(shown)) return static_cast<int>(shown.size());
    int cells = 0;
    for (const char32_t character : QString::fromUtf8(shown).toUcs4())
        cells += std::max(0, widthOf(character));
    return cells;
}

QByteArray cut(const QByteArray& shown, int width) {
    QString result;
    for (const char32_t character : QString::fromUtf8(shown).toUcs4()) {
        width -= std::max(0, widthOf(character));
        if (width < 0) break;
        result += QString::fromUcs4(&character, 1);
    }
    return result.toUtf8();
}

} // namespace torvane::TerminalText
