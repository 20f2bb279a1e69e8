// SPDX-License-Identifier: MIT
// Starting a measuring program, reading its output, and waiting for its end.
#include "Child.h"
#include "Clock.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace torvane::bench {

namespace {
pid_t start(const std::vector<std::string>& command, int output) {
    std::vector<char*> words;
    words.reserve(command.size() + 1);
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    const int error = posix_spawn(&child, words[0], &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error("cannot start " + command[0]);
    return child;
}

Values readValues(int handle) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(fdopen(handle, "r"), std::fclose);
    Values values;
    char name[64];
    double value = 0;
    while (std::fscanf(output.get(), "%63s %lf", name, &value) == 2) values[name] = value;
    return values;
}
} // namespace

Values run(const std::vector<std::string>& command, const std::string& configurationFolder) {
    setenv("XDG_CONFIG_HOME", configurationFolder.c_str(), 1);
    int pipe[2];
    if (pipe2(pipe, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const double started = static_cast<double>(wallClock());
    const pid_t child = start(command, pipe[1]);
    close(pipe[1]);
    Values values = readValues(pipe[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) throw std::runtime_error(command[0] + " failed");
    values["started"] = started;
    return values;
}

} // namespace torvane::bench
