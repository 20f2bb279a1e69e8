// SPDX-License-Identifier: MIT
// Cutting and building lines, and the filter of entered addresses.
#include "WebFields.h"
#include "core/LineText.h"
#include "platform/base/CodePage1252.h"

#include <QStringList>

namespace torvane::WebFields {

QByteArrayView fieldOf(QByteArrayView line, int number) {
    if (line.isEmpty()) return {};
    qsizetype start = 0;
    for (; number > 0; --number) {
        const qsizetype end = line.indexOf(separator, start);
        if (end < 0) return {};
        start = end + 1;
    }
    const qsizetype end = line.indexOf(separator, start);
    return line.sliced(start, (end < 0 ? line.size() : end) - start);
}

QByteArray lineOf(const QString& name, const QString& address, const QString& kind) {
    return CodePage1252::toBytes(QStringList{name, address, kind}.join(QLatin1Char(separator)));
}

Remains without(QByteArrayView file, QByteArrayView line) {
    const qsizetype first = file.indexOf(line);
    if (first < 0) return {};
    const qsizetype next = first + line.size();
    const qsizetype second = file.indexOf(line, next);
    return {true, file.first(first), file.sliced(next, (second < 0 ? file.size() : second) - next)};
}

QString storableAddress(const QString& entered) {
    return lineText(
        entered, [](const QString& text) { return QString::fromLatin1(text.toUtf8().toPercentEncoding()); });
}

} // namespace torvane::WebFields
