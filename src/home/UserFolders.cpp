// SPDX-License-Identifier: MIT
// Reading the environment.
#include "UserFolders.h"

#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace torvane::UserFolders {

namespace {
// The root stays as it is.
QByteArray absolute(QByteArray path) {
    while (path.size() > 1 && path.endsWith('/')) path.chop(1);
    return path.startsWith('/') ? path : QByteArray();
}

// The system's list may be on a network: it is asked only if the environment lacks the home.
QByteArray homeInList() {
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr ? absolute(found->pw_dir) : QByteArray();
}

QByteArray inHome(const char* relative) {
    const QByteArray home = UserFolders::home();
    return home.isEmpty() ? home : (home == "/" ? home : home + '/') + relative;
}
} // namespace

QByteArray home() {
    const QByteArray given = absolute(qgetenv("HOME"));
    return given.isEmpty() ? homeInList() : given;
}

QByteArray data() {
    const QByteArray given = absolute(qgetenv("XDG_DATA_HOME"));
    return given.isEmpty() ? inHome(".local/share") : given;
}

QByteArray configuration() {
    const QByteArray given = absolute(qgetenv("XDG_CONFIG_HOME"));
    return given.isEmpty() ? inHome(".config") : given;
}

} // namespace torvane::UserFolders
