// SPDX-License-Identifier: MIT
// Child processes, their exit codes, and what these mean.
#include "Child.h"
#include "FaultyCalls.h"
#include "platform/base/RuntimeFailure.h"

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace torvane::faults {

namespace {
constexpr int exitSuccess = 0;
constexpr int exitFailure = 1;
constexpr int exitNonsense = 2;
} // namespace

void runAndEnd(const Situation& situation, const std::function<void()>& begin) {
    int code = exitSuccess;
    begin();
    try {
        situation.run();
    } catch (const RuntimeFailure&) {
        code = exitFailure;
    } catch (...) {
        code = exitNonsense;
    }
    disarm();
    _exit(code);
}

pid_t startChild(const std::function<void()>& run) {
    std::fflush(stdout);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no child process");
    if (child > 0) return child;
    run();
    _exit(exitNonsense);
}

Outcome outcomeOf(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
    }
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return Outcome::unreported;
    if (!WIFEXITED(status)) return Outcome::invalid;
    switch (WEXITSTATUS(status)) {
    case exitSuccess: return Outcome::success;
    case exitFailure: return Outcome::failure;
    default: return Outcome::invalid;
    }
}

} // namespace torvane::faults
