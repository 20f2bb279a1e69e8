// SPDX-License-Identifier: MIT
// Names of files between bytes and text.
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
    const uchar lead = at(0);
    const qsizetype length = lead < 0x80                    ? 1
                             : lead >= 0xC2 && lead <= 0xDF ? 2
                             : (lead & 0xF0) == 0xE0        ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
    for (qsizetype i = 1; i < length; ++i) {
        if ((at(i) & 0xC0) != 0x80) return 0;
    }
    const uchar second = at(1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool outside = (lead == 0xED && second > 0x9F) || (lead == 0xF4 && second > 0x8F);
    return overlong || outside ? 0 : length;
}
} // namespace

QString fromNative(QByteArrayView name) {
    if (std::all_of(name.begin(), name.end(), isPlain)) return QString::fromLatin1(name);
    // A byte order mark is a character like others: in a name no order is to be marked.
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text;
    text.reserve(name.size());
    while (!name.isEmpty()) {
        const qsizetype length = name.front() == '\\' ? 0 : sequenceLength(name);
        if (length == 0) {
            text.append(QChar(static_cast<char16_t>(escapeBase + static_cast<uchar>(name.front()))));
        } else {
            text.append(QString(decoder.decode(name.first(length))));
        }
        name = name.sliced(std::max<qsizetype>(length, 1));
    }
    return text;
}

QByteArray toNative(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.unicode() < 0x80) {
            bytes.append(static_cast<char>(c.unicode()));
        } else if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            bytes.append(text.sliced(i++, 2).toUtf8());
        } else if (isEscape(c.unicode())) {
            bytes.append(static_cast<char>(c.unicode() - escapeBase));
        } else {
            bytes.append(c.isSurrogate() ? QByteArrayLiteral("?") : QStringView(&c, 1).toUtf8());
        }
    }
    return bytes;
}

} // namespace torvane::NativeText
