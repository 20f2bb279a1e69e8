// SPDX-License-Identifier: MIT
// Replaces the running program, with a command line and an environment as the user's desktop makes them.
#include "NextStart.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <unistd.h>
#include <vector>

namespace torvane {

namespace {
// What this start has had from its desktop, or from an earlier call, is used up.
void setOrRemove(const char* name, const QByteArray& value) {
    value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
}
} // namespace

NextStart NextStart::ofThisProgram(const QByteArray& folder) {
    std::array<char, PATH_MAX> path{};
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    return {QByteArray(path.data(), std::max<ssize_t>(length, 0)), folder};
}

void NextStart::begin(const StartCall& call) const {
    QByteArrayList words{program};
    if (!folder.isEmpty()) words << "--folder" << folder;
    words << "--" << call.files;
    std::vector<char*> pointers;
    for (QByteArray& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    setOrRemove("DESKTOP_STARTUP_ID", call.startupId);
    setOrRemove("XDG_ACTIVATION_TOKEN", call.activationToken);
    // An open display connection would keep windows on screen that nobody serves.
    close_range(STDERR_FILENO + 1, ~0U, 0);
    execv(program.constData(), pointers.data());
    std::fprintf(stderr, "torvane: %s: %s\n", program.constData(), std::strerror(errno));
}

} // namespace torvane
