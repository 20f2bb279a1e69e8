// SPDX-License-Identifier: MIT
// Reading the hosts of a deployment.
#include "Hosts.h"
#include "platform/base/IniFile.h"
#include "platform/base/Paths.h"

namespace torvane {

namespace {
QByteArray keyOf(Hosts::Host host) {
    switch (host) {
    case Hosts::Host::update: return QByteArrayLiteral("update");
    case Hosts::Host::web: return QByteArrayLiteral("web");
    case Hosts::Host::search: return QByteArrayLiteral("search");
    }
    return {};
}

QString fileAddress(const QString& folder) {
    // Only the folder is encoded: a page's path may carry a query, and stays as the caller wrote it.
    return QStringLiteral("file://") +
           QString::fromLatin1(Paths::real(folder).toPercentEncoding(QByteArrayLiteral("/")));
}
} // namespace

QString Hosts::address(Host host, const QString& path) const {
    const QString file = m_globals.AppPath + QStringLiteral("\\data\\hosts.ini");
    QString value = QString::fromUtf8(
        IniFile::value(file, QByteArrayLiteral("Hosts"), keyOf(host)).value_or(QByteArray()));
    if (value.isEmpty()) value = QStringLiteral("data/site");
    while (value.endsWith(QLatin1Char('/'))) value.chop(1);
    if (value.contains(QStringLiteral("://"))) return value + path;
    return fileAddress(m_globals.AppPath + QLatin1Char('\\') + value) + path;
}

} // namespace torvane
