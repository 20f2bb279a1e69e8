// SPDX-License-Identifier: MIT
// Reading the environment.
#include "UserFolders.h"

#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace torvane::UserFolders {

namespace {
QByteArray absolute(const char* variable) {
    const QByteArray value = qgetenv(variable);
    return value.startsWith('/') ? value : QByteArray();
}

// The system's list may be on a network: it is asked only if the environment lacks the home.
QByteArray homeInList() {
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr ? QByteArray(found->pw_dir) : QByteArray();
}
} // namespace

QByteArray home() {
    const QByteArray given = absolute("HOME");
    return given.isEmpty() ? homeInList() : given;
}

QByteArray data() {
    const QByteArray given = absolute("XDG_DATA_HOME");
    return given.isEmpty() ? home() + "/.local/share" : given;
}

QByteArray configuration() {
    const QByteArray given = absolute("XDG_CONFIG_HOME");
    return given.isEmpty() ? home() + "/.config" : given;
}

} // namespace torvane::UserFolders
