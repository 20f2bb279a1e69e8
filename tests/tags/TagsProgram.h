// SPDX-License-Identifier: MIT
// Runs the built program torvane-tags as a shell does, with arguments of any bytes.
#pragma once

#include "MemoryFile.h"
#include "support/TestFolder.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <utility>

namespace torvane {

struct ProgramRun {
    int status = -1; ///< of the exit; 128 and the signal's number if one has killed it
    QByteArray output;
    QByteArray errors;
};

/// A library in a folder of its own, and a working folder. The program under test lies in no folder with
/// data, and has settings of its own: none until a test makes some.
class TagsProgram {
public:
    TagsProgram() { folder.makeFolder(QStringLiteral("home/roms")); }

    TestFolder folder;
    QByteArrayList environment{"LANG=C.UTF-8", "XDG_CONFIG_HOME=" + folder.native("config")};
    /// Runs in the child before the program does.
    std::function<void()> prepare = [] {};

    /// Makes this line all of the user's settings.
    void setting(const QByteArray& line) const {
        folder.write(QStringLiteral("config/Torvane/Torvane.conf"), "[Config]\n" + line + '\n');
    }
    /// Starts it; it works in the test's folder.
    pid_t start(const QByteArrayList& arguments, int output, int errors) const {
        const pid_t child = fork();
        if (child != 0) return child;
        dup2(output, STDOUT_FILENO);
        dup2(errors, STDERR_FILENO);
        become(arguments);
    }
    /// Replaces this process, a child of the test, by the program.
    [[noreturn]] void become(const QByteArrayList& arguments) const {
        if (chdir(folder.native("").constData()) != 0) _exit(98);
        prepare();
        std::vector<char*> words{const_cast<char*>("torvane-tags")};
        for (const QByteArray& argument : arguments) words.push_back(const_cast<char*>(argument.constData()));
        words.push_back(nullptr);
        std::vector<char*> variables;
        for (const QByteArray& variable : environment)
            variables.push_back(const_cast<char*>(variable.constData()));
        variables.push_back(nullptr);
        execve(TORVANE_TAGS_PROGRAM, words.data(), variables.data());
        _exit(99);
    }
    static int endOf(pid_t child) {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    ProgramRun run(const QByteArrayList& arguments) const {
        const MemoryFile output;
        const MemoryFile errors;
        const int status = endOf(start(arguments, output.descriptor(), errors.descriptor()));
        return {status, output.content(), errors.content()};
    }
    /// The same with the library of the test.
    ProgramRun runHere(QByteArrayList arguments) const {
        return run(QByteArrayList{"--folder", "home"} + arguments);
    }
    /// The same where no file can grow beyond a size in bytes.
    ProgramRun runOnFullDisk(rlim_t largestFile, const QByteArrayList& arguments) {
        prepare = [largestFile] {
            const rlimit limit{largestFile, largestFile};
            setrlimit(RLIMIT_FSIZE, &limit);
        };
        const ProgramRun ended = runHere(arguments);
        prepare = [] {};
        return ended;
    }
};

/// A run whose output is a pipe that nobody empties: having printed enough, it waits.
class PipedRun {
public:
    /// Returns as soon as the run has printed something.
    PipedRun(const TagsProgram& program, const QByteArrayList& arguments, int errors = STDERR_FILENO) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) qFatal("no pipe");
        m_reading = ends[0];
        m_child = program.start(arguments, ends[1], errors);
        close(ends[1]);
        takeSome(1); // one byte makes no room for others
    }
    ~PipedRun() {
        if (m_child > 0) {
            kill(m_child, SIGKILL);
            TagsProgram::endOf(m_child);
        }
        close(m_reading);
    }
    PipedRun(const PipedRun&) = delete;
    PipedRun& operator=(const PipedRun&) = delete;

    pid_t child() const { return m_child; }
    const QByteArray& output() const { return m_output; }
    /// Takes all that is printed until the end, and gives the status.
    int end() {
        while (takeSome(4096)) {
        }
        return wait();
    }
    /// Waits for the end without emptying the pipe.
    int wait() { return TagsProgram::endOf(std::exchange(m_child, -1)); }

private:
    bool takeSome(size_t most) {
        std::array<char, 4096> some{};
        const ssize_t got = read(m_reading, some.data(), most);
        if (got > 0) m_output.append(some.data(), got);
        return got > 0;
    }

    int m_reading = -1;
    pid_t m_child = -1;
    QByteArray m_output;
};

/// An image of so many bytes with a tag line after it.
inline QByteArray taggedGame(const QByteArray& title, const QByteArray& company = "Acme",
                             const QByteArray& info = "Info", const QByteArray& date = "1/2/03",
                             qsizetype size = 4096) {
    return QByteArray(size, 'r') + "ID3TAG\xA7" + company + '\xA7' + title + '\xA7' + date + '\xA7' + info +
           '\xA7' + QByteArray::number(size) + "\xA7\r\n";
}

} // namespace torvane
