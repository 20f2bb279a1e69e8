// SPDX-License-Identifier: MIT
// The signals are blocked and taken one by one, so that none can come between a look and a wait.
#include "EmulatorProcess.h"

#include <cerrno>
#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ; // NOLINT(readability-redundant-declaration): POSIX leaves the declaration to us

namespace torvane {

namespace {
sigset_t setOf(std::initializer_list<int> numbers) {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : numbers) sigaddset(&set, number);
    return set;
}

// What is blocked stays pending even where it would be ignored.
class HeldSignals {
public:
    HeldSignals() {
        // If the end of a child were ignored, its status would be lost.
        m_childBefore = std::signal(SIGCHLD, SIG_DFL);
        pthread_sigmask(SIG_BLOCK, &m_held, &m_before);
    }
    ~HeldSignals() {
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
        std::signal(SIGCHLD, m_childBefore);
    }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    const sigset_t& before() const { return m_before; }
    /// Waits for one, and passes it on if it was sent to this process alone.
    void take(pid_t child) const {
        siginfo_t info{};
        const int signal = sigwaitinfo(&m_held, &info);
        if (signal > 0 && signal != SIGCHLD && info.si_code <= 0) kill(child, signal);
    }

private:
    const sigset_t m_held = setOf({SIGINT, SIGTERM, SIGCHLD});
    sigset_t m_before{};
    void (*m_childBefore)(int) = SIG_DFL;
};

// The result of posix_spawn(3). This program ignores two signals that others want to be killed by.
int spawn(pid_t& child, const QByteArray& program, char** argv, const sigset_t& mask) {
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    const sigset_t defaults = setOf({SIGPIPE, SIGXFSZ});
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setsigmask(&attributes, &mask);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    const int error = posix_spawn(&child, program.constData(), nullptr, &attributes, argv, environ);
    posix_spawnattr_destroy(&attributes);
    return error;
}
} // namespace

void EmulatorProcess::runAndWait(const QByteArray& program, const QByteArrayList& arguments) {
    QByteArrayList words = arguments;
    words.prepend(program);
    std::vector<char*> argv;
    for (QByteArray& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    const HeldSignals held;
    pid_t child = 0;
    const int error = spawn(child, program, argv.data(), held.before());
    if (error != 0) {
        m_status = error == ENOENT ? notFound : notExecutable;
        return;
    }
    m_hasStarted = true;
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) held.take(child);
    m_status = WIFEXITED(status) ? WEXITSTATUS(status) : signalled + WTERMSIG(status);
}

} // namespace torvane
