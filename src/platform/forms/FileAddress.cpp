// SPDX-License-Identifier: MIT
// Reading the addresses of files.
#include "FileAddress.h"

#include <QString>
#include <QSysInfo>

namespace torvane::FileAddress {

namespace {
const char scheme[] = "file:";
constexpr qsizetype schemeLength = sizeof scheme - 1;

bool isThisMachine(const QByteArray& host) {
    return host.isEmpty() || host == "localhost" || host == QSysInfo::machineHostName().toLower().toUtf8();
}
} // namespace

bool isOne(const QByteArray& address) { return address.left(schemeLength).toLower() == scheme; }

QByteArray pathOf(const QByteArray& address) {
    if (!isOne(address)) return {};
    QByteArray rest = address.sliced(schemeLength);
    if (rest.startsWith("//")) {
        const qsizetype slash = rest.indexOf('/', 2);
        if (slash < 0 || !isThisMachine(rest.sliced(2, slash - 2).toLower())) return {};
        rest = rest.sliced(slash);
    }
    const QByteArray path = QByteArray::fromPercentEncoding(rest);
    return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

} // namespace torvane::FileAddress
