// SPDX-License-Identifier: MIT
// Runs the built program torvane-tags as a shell does, with arguments of any bytes.
#pragma once

#include "MemoryFile.h"
#include "support/TestFolder.h"

#include <csignal>
#include <functional>
#include <sys/wait.h>

namespace torvane {

struct ProgramRun {
    int status = -1; ///< of the exit; 128 and the signal's number if one has killed it
    QByteArray output;
    QByteArray errors;
};

/// A library in a folder of its own, and a working folder. The home is given by XDG_DATA_HOME, as for an
/// installed program: the one under test lies in no folder with data.
class TagsProgram {
public:
    TagsProgram() { folder.makeFolder(QStringLiteral("home/roms")); }

    TestFolder folder;
    QByteArrayList environment{"LANG=C.UTF-8"};
    /// Runs in the child before the program does.
    std::function<void()> prepare = [] {};

    /// Starts it; it works in the test's folder.
    pid_t start(const QByteArrayList& arguments, int output, int errors) const {
        const pid_t child = fork();
        if (child != 0) return child;
        dup2(output, STDOUT_FILENO);
        dup2(errors, STDERR_FILENO);
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
};

/// An image of so many bytes with a tag line after it.
inline QByteArray taggedGame(const QByteArray& title, const QByteArray& company = "Acme",
                             const QByteArray& info = "Info", const QByteArray& date = "1/2/03",
                             qsizetype size = 4096) {
    return QByteArray(size, 'r') + "ID3TAG\xA7" + company + '\xA7' + title + '\xA7' + date + '\xA7' + info +
           '\xA7' + QByteArray::number(size) + "\xA7\r\n";
}

} // namespace torvane
