// SPDX-License-Identifier: MIT
// One character after the other.
#include "LineText.h"
#include "platform/base/CodePage1252.h"

#include <QList>

namespace torvane {

namespace {
bool breaksLine(char32_t character) {
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph: return true;
    default: return false;
    }
}
} // namespace

QString lineText(const QString& entered, const std::function<QString(const QString&)>& substitute) {
    QString line;
    for (const char32_t character : entered.toUcs4()) {
        const QString text = QString::fromUcs4(&character, 1);
        if (breaksLine(character)) {
            line += QLatin1Char(' ');
        } else if (CodePage1252::holds(text)) {
            line += text;
        } else if (substitute) {
            line += substitute(text);
        }
    }
    return line;
}

} // namespace torvane
