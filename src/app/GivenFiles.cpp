// SPDX-License-Identifier: MIT
// Looks at the files of a command line.
#include "GivenFiles.h"
#include "platform/base/Printable.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace torvane {

namespace {
// Null for a file or a folder; else what is wrong.
const char* faultOf(const QByteArray& path) {
    struct stat info {};
    if (stat(path.constData(), &info) != 0) return std::strerror(errno);
    return S_ISREG(info.st_mode) || S_ISDIR(info.st_mode) ? nullptr : "Neither a file nor a folder";
}
} // namespace

QByteArray absolutePath(const QByteArray& name) {
    std::array<char, PATH_MAX> working{};
    if (name.startsWith('/') || getcwd(working.data(), working.size()) == nullptr) return name;
    return QByteArray(working.data()) + '/' + name;
}

GivenFiles GivenFiles::of(const QByteArrayList& names) {
    GivenFiles files;
    for (const QByteArray& name : names) {
        QByteArray path = absolutePath(name);
        while (path.size() > 1 && path.endsWith('/')) path.chop(1);
        if (const char* fault = faultOf(path)) {
            files.faults.append(printable(name) + ": " + fault);
            files.faulty.append(path);
        } else {
            files.paths.append(path);
        }
    }
    return files;
}

} // namespace torvane
