// SPDX-License-Identifier: MIT
// Reading of dropped addresses, as bytes: Qt would read them as UTF-8, which names need not be.
#include "DroppedPath.h"
#include "../base/Paths.h"

#include <QMimeData>
#include <QSysInfo>
#include <sys/stat.h>

namespace torvane {

namespace {
// The first line that is no comment.
QByteArray firstAddress(const QByteArray& list) {
    for (const QByteArray& line : list.split('\n')) {
        QByteArray address = line.trimmed();
        if (!address.isEmpty() && !address.startsWith('#')) return address;
    }
    return {};
}

// The path in a file's address (RFC 8089); empty for any other address and for files of another machine.
QByteArray pathOf(const QByteArray& address) {
    const QByteArray scheme = "file:";
    if (address.first(std::min(scheme.size(), address.size())).toLower() != scheme) return {};
    QByteArray rest = address.sliced(scheme.size());
    if (rest.startsWith("//")) {
        const qsizetype slash = rest.indexOf('/', 2);
        if (slash < 0) return {};
        const QByteArray host = rest.sliced(2, slash - 2).toLower();
        if (!host.isEmpty() && host != "localhost" &&
            host != QSysInfo::machineHostName().toLower().toUtf8()) {
            return {};
        }
        rest = rest.sliced(slash);
    }
    const QByteArray path = QByteArray::fromPercentEncoding(rest);
    return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}
} // namespace

std::optional<QString> droppedPath(const QMimeData& data) {
    QByteArray path = pathOf(firstAddress(data.data(QStringLiteral("text/uri-list"))));
    while (path.size() > 1 && path.endsWith('/')) path.chop(1);
    struct stat info {};
    if (path.isEmpty() || stat(path.constData(), &info) != 0) return std::nullopt;
    if (!S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode)) return std::nullopt;
    return Paths::spelled(path);
}

} // namespace torvane
