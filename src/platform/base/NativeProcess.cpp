// SPDX-License-Identifier: MIT
// Starts processes by posix_spawn(3) with an explicit path: the variants that search for the program pass a
// file that is not executable to a shell, and a game image must never run as a script.
#include "NativeProcess.h"

#include <cerrno>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ; // NOLINT(readability-redundant-declaration): POSIX leaves the declaration to us

namespace torvane {

bool NativeProcess::isProgram(const QByteArray& path) {
    struct stat info {};
    return stat(path.constData(), &info) == 0 && S_ISREG(info.st_mode) && access(path.constData(), X_OK) == 0;
}

void NativeProcess::runAndWait(const QByteArray& program, const QByteArrayList& arguments) {
    QByteArrayList words = arguments;
    words.prepend(program);
    std::vector<char*> argv;
    argv.reserve(static_cast<size_t>(words.size()) + 1);
    for (QByteArray& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, program.constData(), nullptr, nullptr, argv.data(), environ) != 0) return;
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
}

} // namespace torvane
