// SPDX-License-Identifier: MIT
// Another program that works on the same files: a child process that pipes keep in step with the test.
#pragma once

#include <array>
#include <csignal>
#include <functional>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace torvane {

/// Runs `atFirst`, then waits, keeping all files that it has opened, until `end` or the end of this object;
/// then it runs `atLast` and exits.
class OtherProgram {
public:
    explicit OtherProgram(
        const std::function<void()>& atFirst, const std::function<void()>& atLast = [] {}) {
        std::array<int, 2> ready{};
        std::array<int, 2> stay{};
        if (pipe(ready.data()) != 0 || pipe(stay.data()) != 0) _exit(98);
        m_process = fork();
        if (m_process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            // Close the files of the test: inherited descriptors share their locks and positions.
            for (int handle = STDERR_FILENO + 1; handle < mostHandles; ++handle) {
                if (handle != ready[1] && handle != stay[0]) close(handle);
            }
            atFirst();
            close(ready[1]);
            char end = 0;
            while (::read(stay[0], &end, 1) < 0) {
            }
            atLast();
            _exit(0);
        }
        close(ready[1]);
        close(stay[0]);
        m_stay = stay[1];
        char begin = 0;
        while (::read(ready[0], &begin, 1) < 0) {
        } // the pipe is closed: the child is ready, or dead
        close(ready[0]);
    }
    ~OtherProgram() { end(); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Lets it run to its end, and waits; gives the status of wait(2).
    int end() {
        letGo();
        return wait();
    }
    /// Lets it run to its end, and does not wait.
    void letGo() {
        if (m_stay >= 0) close(m_stay);
        m_stay = -1;
    }
    /// Kills it at once, without `atLast`.
    void kill() {
        ::kill(m_process, SIGKILL);
        wait();
    }

private:
    static constexpr int mostHandles = 256;

    int wait() {
        int status = 0;
        if (m_process > 0) waitpid(m_process, &status, 0);
        m_process = -1;
        return status;
    }

    pid_t m_process = -1;
    int m_stay = -1;
};

/// Runs something in a process of its own, to its end; gives the status of wait(2).
inline int inOtherProgram(const std::function<void()>& work) { return OtherProgram(work).end(); }

} // namespace torvane
