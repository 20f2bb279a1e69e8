// SPDX-License-Identifier: MIT
// Reading the hosts of a deployment, and naming the files of hosts that are folders.
#include "Hosts.h"
#include "platform/base/IniFile.h"
#include "platform/base/Paths.h"

#include <QStringList>

namespace torvane {

namespace {
constexpr qsizetype longestName = 100;

QByteArray keyOf(Hosts::Host host) {
    switch (host) {
    case Hosts::Host::update: return QByteArrayLiteral("update");
    case Hosts::Host::web: return QByteArrayLiteral("web");
    case Hosts::Host::search: return QByteArrayLiteral("search");
    }
    return {};
}

QString encoded(const QByteArray& native) {
    return QString::fromLatin1(native.toPercentEncoding(QByteArrayLiteral("/")));
}

// Control characters go: a NUL would end the name for the system.
QString plainFile(const QString& path) {
    QString file;
    for (QString part : path.split(QLatin1Char('/'))) {
        erase_if(part, [](QChar c) { return c.category() == QChar::Other_Control; });
        if (part.isEmpty() || part == QLatin1String(".") || part == QLatin1String("..")) continue;
        file += QLatin1Char('/') + encoded(part.toUtf8());
    }
    return file;
}

// What somebody typed is not the page's name but an input to it.
QString withoutTypedText(const QString& query) {
    const auto typed = QStringLiteral("&query=");
    const QString keys = QLatin1Char('&') + query;
    const qsizetype at = keys.indexOf(typed);
    return at < 0 ? keys : keys.first(at + typed.size());
}

bool isNameCharacter(QChar c) {
    return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == QLatin1Char('_'));
}

QString pageFile(const QString& script, const QString& query) {
    QString name;
    for (const QChar c : script.section(QLatin1Char('.'), 0, 0) + withoutTypedText(query)) {
        if (isNameCharacter(c)) {
            name += c;
        } else if (!name.isEmpty() && !name.endsWith(QLatin1Char('-'))) {
            name += QLatin1Char('-');
        }
    }
    name.truncate(longestName);
    if (name.endsWith(QLatin1Char('-'))) name.chop(1);
    return QLatin1Char('/') + name + QStringLiteral(".html");
}

QString fileOf(const QString& path) {
    const qsizetype mark = path.indexOf(QLatin1Char('?'));
    return mark < 0 ? plainFile(path) : pageFile(path.first(mark), path.sliced(mark + 1));
}
} // namespace

QString Hosts::address(Host host, const QString& path) const {
    const QString file = m_globals.AppPath + QStringLiteral("\\data\\hosts.ini");
    QString value = QString::fromUtf8(
        IniFile::value(file, QByteArrayLiteral("Hosts"), keyOf(host)).value_or(QByteArray()));
    if (value.isEmpty()) value = QStringLiteral("data/site");
    while (value.endsWith(QLatin1Char('/'))) value.chop(1);
    if (value.contains(QStringLiteral("://"))) return value + path;
    const QByteArray folder = Paths::real(m_globals.AppPath + QLatin1Char('\\') + value);
    return QStringLiteral("file://") + encoded(folder) + fileOf(path);
}

} // namespace torvane
