// SPDX-License-Identifier: MIT
// Reading of dropped addresses.
#include "DroppedPath.h"
#include "../base/Paths.h"
#include "FileAddress.h"

#include <QMimeData>
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
} // namespace

std::optional<QString> droppedPath(const QMimeData& data) {
    QByteArray path = FileAddress::pathOf(firstAddress(data.data(QStringLiteral("text/uri-list"))));
    while (path.size() > 1 && path.endsWith('/')) path.chop(1);
    struct stat info {};
    if (path.isEmpty() || stat(path.constData(), &info) != 0) return std::nullopt;
    if (!S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode)) return std::nullopt;
    return Paths::spelled(path);
}

} // namespace torvane
