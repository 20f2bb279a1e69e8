// SPDX-License-Identifier: MIT
// Runs another program as a whole, from its start to its end.
#pragma once

#include "Samples.h"

#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace torvane::bench {

/// Runs a program from the PATH, or at a path, and waits for its end; what it prints is dropped. Ends this
/// process if it can't be run, or does not end with 0.
inline void runToEnd(const std::vector<std::string>& command) {
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    mustHold(posix_spawnp(&child, words.front(), &actions, nullptr, words.data(), environ) == 0);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    mustHold(waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

} // namespace torvane::bench
