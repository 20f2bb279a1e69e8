// SPDX-License-Identifier: MIT
// Conversion of file names between bytes and text.
#include "NativeText.h"

#include <QStringConverter>
#include <algorithm>

namespace torvane::NativeText {

namespace {
constexpr char16_t escapeBase = 0xDC00;

bool isPlain(char byte) { return static_cast<unsigned char>(byte) < 0x80 && byte != '\\'; }

bool isEscape(char16_t unit) { return (unit >= 0xDC80 && unit <= 0xDCFF) || unit == 0xDC5C; }

// The length of the well-formed UTF-8 sequence at the front (Unicode 15, table 3-7), or 0.
qsizetype sequenceLength(QByteArrayView bytes) {
    const auto at = [&](qsizetype i) { return i < bytes.size() ? static_cast<uchar>(bytes[i]) : 0; };
    const int lead = at(0);
    const qsizetype length = lead < 0x80                    ? 1
                             : lead >= 0xC2 && lead <= 0xDF ? 2
                             : (lead & 0xF0) == 0xE0        ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
    for (qsizetype i = 1; i < length; ++i) {
        if ((at(i) & 0xC0) != 0x80) return 0;
    }
    const int second = at(1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool outside = (lead == 0xED && second > 0x9F) || (lead == 0xF4 && second > 0x8F);
    return overlong || outside ? 0 : length;
}

// The number of bytes at the front that need no escape.
qsizetype wellFormedLength(QByteArrayView bytes) {
    qsizetype length = 0;
    while (length < bytes.size() && bytes[length] != '\\') {
        const qsizetype step = sequenceLength(bytes.sliced(length));
        if (step == 0) break;
        length += step;
    }
    return length;
}

// The number of units at the front before the first lone surrogate.
qsizetype wellFormedLength(QStringView text) {
    qsizetype length = 0;
    while (length < text.size()) {
        const bool isPair =
            text[length].isHighSurrogate() && length + 1 < text.size() && text[length + 1].isLowSurrogate();
        if (text[length].isSurrogate() && !isPair) break;
        length += isPair ? 2 : 1;
    }
    return length;
}
} // namespace

QString fromNative(QByteArrayView name) {
    if (std::all_of(name.begin(), name.end(), isPlain)) return QString::fromLatin1(name);
    // A byte order mark in a name is a character like any other.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text;
    text.reserve(name.size());
    while (!name.isEmpty()) {
        const qsizetype length = wellFormedLength(name);
        if (length > 0) text.append(QString(decoder.decode(name.first(length))));
        name = name.sliced(length);
        if (name.isEmpty()) break;
        text.append(QChar(static_cast<char16_t>(escapeBase + static_cast<uchar>(name.front()))));
        name = name.sliced(1);
    }
    return text;
}

QByteArray toNative(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    while (!text.isEmpty()) {
        const qsizetype length = wellFormedLength(text);
        bytes.append(text.first(length).toUtf8());
        text = text.sliced(length);
        if (text.isEmpty()) break;
        const char16_t unit = text.front().unicode();
        bytes.append(isEscape(unit) ? static_cast<char>(unit - escapeBase) : '?');
        text = text.sliced(1);
    }
    return bytes;
}

QString folded(QStringView text) {
    // Qt's case folding maps all lone surrogates to the same character.
    QString result;
    result.reserve(text.size());
    while (!text.isEmpty()) {
        const qsizetype length = wellFormedLength(text);
        result += text.first(length).toString().toCaseFolded();
        text = text.sliced(length);
        if (text.isEmpty()) break;
        result += text.front();
        text = text.sliced(1);
    }
    return result;
}

} // namespace torvane::NativeText
