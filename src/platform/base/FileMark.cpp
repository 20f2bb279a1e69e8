// SPDX-License-Identifier: MIT
// Reading and writing the attribute: the number, and the state of the file that it is true of.
#include "FileMark.h"

#include <array>
#include <sys/xattr.h>

namespace torvane::FileMark {

namespace {
QByteArray textOf(const Handle& file, qint64 number) {
    const struct stat info = infoOf(file);
    return QByteArray::number(number) + " of " + QByteArray::number(qint64{info.st_size}) + " at " +
           QByteArray::number(qint64{info.st_mtim.tv_sec}) + '.' +
           QByteArray::number(qint64{info.st_mtim.tv_nsec});
}

QByteArray attribute(const char* name) { return QByteArrayLiteral("user.torvane.") + name; }
} // namespace

std::optional<qint64> read(const Handle& file, const char* name) {
    std::array<char, 128> text{};
    const ssize_t size = fgetxattr(file.number(), attribute(name).constData(), text.data(), text.size());
    if (size <= 0) return std::nullopt;
    const QByteArray found(text.data(), size);
    const qint64 number = found.first(std::max<qsizetype>(found.indexOf(' '), 0)).toLongLong();
    return found == textOf(file, number) ? std::optional(number) : std::nullopt;
}

void write(const Handle& file, const char* name, qint64 number) {
    ignoring([&] {
        const QByteArray text = textOf(file, number);
        fsetxattr(file.number(), attribute(name).constData(), text.constData(),
                  static_cast<size_t>(text.size()), 0);
    });
}

} // namespace torvane::FileMark
