// SPDX-License-Identifier: MIT
// Escapes in settings.
#include "SettingLine.h"
#include "NativeText.h"

#include <QByteArrayList>
#include <QStringList>
#include <cctype>

namespace torvane::SettingLine {

namespace {
// A backslash inside a file name, as opposed to the program's separator (see NativeText).
constexpr char16_t innerBackslash = 0xDC5C;

bool isEscape(const QString& text, qsizetype at) {
    const auto isHex = [&](qsizetype i) {
        return i < text.size() && std::isxdigit(static_cast<uchar>(text[i].toLatin1())) != 0;
    };
    return text[at] == QLatin1Char('%') && isHex(at + 1) && isHex(at + 2);
}

QString escaped(const QString& value) {
    QString line;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const char16_t unit = value[i].unicode();
        const bool isOuterBlank = unit == ' ' && (i == 0 || i == value.size() - 1);
        // The same unit may also be the second half of a surrogate pair, such as that of the handbag
        // (U+1F45C).
        const bool isInner = unit == innerBackslash && (i == 0 || !value[i - 1].isHighSurrogate());
        if (unit < ' ' || isOuterBlank || isInner || isEscape(value, i)) {
            line += QString::asprintf("%%%02X", unit & 0xFFu);
        } else {
            line += value[i];
        }
    }
    return line;
}

QString unescaped(const QString& line) {
    QString value;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (!isEscape(line, i)) {
            value += line[i];
            continue;
        }
        const auto unit = static_cast<char16_t>(QStringView(line).sliced(i + 1, 2).toUInt(nullptr, 16));
        value += QChar(unit == '\\' ? innerBackslash : unit);
        i += 2;
    }
    return value;
}
} // namespace

QByteArray of(const QString& text) { return NativeText::toNative(escaped(text)); }

QString textOf(const QByteArray& line) {
    // A backslash in a stored path is the program's separator, not part of a file name.
    QStringList pieces;
    for (const QByteArray& piece : line.split('\\')) pieces << NativeText::fromNative(piece);
    return unescaped(pieces.join(QLatin1Char('\\')));
}

} // namespace torvane::SettingLine
