// SPDX-License-Identifier: MIT
// The search for access keys.
#include "AccessKey.h"

namespace torvane {

namespace {
constexpr QChar mark = u'&';

// The character after a mark at that place; null if there is none, or no mark.
QChar characterAfter(const QString& caption, qsizetype place) {
    return place < 0 || place + 1 >= caption.size() ? QChar() : caption[place + 1].toLower();
}
} // namespace

QChar accessKeyOf(const QString& caption) {
    if (caption.size() < 2) return {};
    const qsizetype first = caption.indexOf(mark);
    const QChar key = characterAfter(caption, first);
    if (key != mark) return key;
    const QChar second = characterAfter(caption, caption.indexOf(mark, first + 2));
    return second == mark ? QChar() : second;
}

QString withoutAccessMarks(const QString& caption) {
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == mark && ++i == caption.size()) break;
        plain += caption[i];
    }
    return plain;
}

} // namespace torvane
