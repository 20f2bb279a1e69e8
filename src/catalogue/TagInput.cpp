// SPDX-License-Identifier: MIT
// The filter of entered text, and today's date.
#include "TagInput.h"
#include "TagLine.h"
#include "core/LineText.h"
#include "platform/base/CodePage1252.h"

#include <QDate>
#include <QLocale>

namespace torvane::TagInput {

namespace {
// Empty values are appended as one blank.
QByteArray stored(const QString& value) { return value.isEmpty() ? " " : CodePage1252::toBytes(value); }
} // namespace

QString storable(const QString& entered) { return lineText(entered).remove(QChar(u'§')); }

bool isTooLongToRead(const QString& title, const QString& company, const QString& info, qint64 imageSize) {
    // The reader sees 1024 bytes, which end before the last byte of the file, a part of the line end.
    constexpr qsizetype longestLine = 1025;
    const QByteArray line =
        TagLine::build({stored(company), stored(title), CodePage1252::toBytes(todayAsText()), stored(info),
                        QByteArray::number(imageSize)});
    return line.size() > longestLine;
}

QString todayAsText() {
    const QDate today = QDate::currentDate();
    const QString text = QLocale::system().toString(today, QLocale::ShortFormat);
    return CodePage1252::holds(text) ? text : today.toString(QStringLiteral("dd/MM/yyyy"));
}

} // namespace torvane::TagInput
