// SPDX-License-Identifier: MIT
// Joining and cutting the texts of entries.
#include "WebEntry.h"
#include "WebFields.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/RuntimeFailure.h"

namespace torvane {

namespace {
QString padding() { return QString(200, QLatin1Char(' ')); }
} // namespace

QString WebEntry::textOf(const QString& name, const QString& address, const QString& kind) {
    return name + padding() + QLatin1Char('$') + address + QLatin1Char('$') + kind;
}

QString WebEntry::piece(int number) const {
    if (number >= m_pieces.size()) throw RuntimeFailure(RuntimeFailure::subscript);
    return m_pieces[number];
}

bool WebEntry::isPage() const {
    const QString start = address();
    for (const QLatin1String scheme :
         {QLatin1String("http:"), QLatin1String("https:"), QLatin1String("file:")}) {
        if (start.startsWith(scheme, Qt::CaseInsensitive)) return true;
    }
    return false;
}

QByteArray WebEntry::line() const {
    const QString beforePadding = m_text.left(m_text.indexOf(padding()));
    return WebFields::lineOf(beforePadding, address(), kind());
}

} // namespace torvane
