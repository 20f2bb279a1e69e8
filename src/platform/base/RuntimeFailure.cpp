// SPDX-License-Identifier: MIT
// Numbers and texts of run-time failures.
#include "RuntimeFailure.h"

#include <cerrno>

namespace torvane {

RuntimeFailure::RuntimeFailure(Number number, Reason reason) : m_number(number), m_reason(reason) {}

QString RuntimeFailure::boxText() const {
    return QStringLiteral("Run-time error '%1':\n\n%2").arg(m_number).arg(text());
}

RuntimeFailure RuntimeFailure::about(const QString& file) const {
    RuntimeFailure failure = *this;
    if (failure.m_file.isEmpty()) failure.m_file = file;
    return failure;
}

RuntimeFailure RuntimeFailure::fromErrno(int error) {
    switch (error) {
    case ENOENT: return RuntimeFailure(fileNotFound);
    case ENOTDIR: return RuntimeFailure(pathNotFound);
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return RuntimeFailure(diskFull);
    case EACCES:
    case EPERM: return RuntimeFailure(permissionDenied);
    case EWOULDBLOCK: return RuntimeFailure(permissionDenied, Reason::inUse); // by a lease
    case EROFS:
    case EISDIR:
    case ENXIO: // a pipe or socket in place of a file, with nobody at its other end
    case ENAMETOOLONG:
    case ELOOP: return RuntimeFailure(pathAccess);
    default: return RuntimeFailure(deviceError);
    }
}

RuntimeFailure RuntimeFailure::ofNoHome() {
    return RuntimeFailure(pathNotFound, Reason::noHome).about(QStringLiteral("$HOME"));
}

QString RuntimeFailure::describe(Number number) {
    switch (number) {
    case none: return QString();
    case invalidCall: return QStringLiteral("Invalid procedure call or argument");
    case overflow: return QStringLiteral("Overflow");
    case outOfMemory: return QStringLiteral("Out of memory");
    case subscript: return QStringLiteral("Subscript out of range");
    case typeMismatch: return QStringLiteral("Type mismatch");
    case fileNotFound: return QStringLiteral("File not found");
    case deviceError: return QStringLiteral("Device I/O error");
    case diskFull: return QStringLiteral("Disk full");
    case permissionDenied: return QStringLiteral("Permission denied");
    case pathAccess: return QStringLiteral("Path/File access error");
    case pathNotFound: return QStringLiteral("Path not found");
    case noObject: return QStringLiteral("Object variable or With block variable not set");
    case invalidProperty: return QStringLiteral("Invalid property value");
    case invalidPicture: return QStringLiteral("Invalid picture");
    case printer: return QStringLiteral("Printer error");
    }
    return QString();
}

} // namespace torvane
