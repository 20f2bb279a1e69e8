// SPDX-License-Identifier: MIT
// The filter of entered text, and today's date.
#include "TagInput.h"
#include "TagLine.h"
#include "core/LineText.h"
#include "platform/base/CodePage1252.h"

#include <QDate>
#include <QLocale>

namespace torvane::TagInput {

QString storable(const QString& entered) { return lineText(entered).remove(QChar(u'§')); }

qsizetype excessOf(const TagLine::Fields& fields) {
    // The reader sees 1024 bytes, which end before the last byte of the file, a part of the line end.
    constexpr qsizetype longestLine = 1025;
    TagLine::Fields stored = fields;
    for (QByteArray* text : {&stored.company, &stored.title, &stored.info}) {
        if (text->isEmpty()) *text = " ";
    }
    return TagLine::build(stored).size() - longestLine;
}

bool isTooLongToRead(const QString& title, const QString& company, const QString& info, qint64 imageSize) {
    return excessOf({CodePage1252::toBytes(company), CodePage1252::toBytes(title),
                     CodePage1252::toBytes(todayAsText()), CodePage1252::toBytes(info),
                     QByteArray::number(imageSize)}) > 0;
}

QString todayAsText() {
    const QDate today = QDate::currentDate();
    const QString text = QLocale::system().toString(today, QLocale::ShortFormat);
    return CodePage1252::holds(text) ? text : today.toString(QStringLiteral("dd/MM/yyyy"));
}

} // namespace torvane::TagInput
