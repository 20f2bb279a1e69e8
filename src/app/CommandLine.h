// SPDX-License-Identifier: MIT
// The command line of the program with windows: options and files.
#pragma once

#include <QByteArrayList>

namespace torvane {

struct CommandLine {
    enum class Wish {
        start,   ///< the program, with whatever folder and files are given
        help,    ///< the help text and nothing else
        version, ///< the version and nothing else
        refusal  ///< something can't be understood
    };

    Wish wish = Wish::start;
    QByteArray folder;    ///< the program's folder as given; empty if none is
    QByteArrayList files; ///< as given; none is empty
    QByteArray fault;     ///< why it is refused, without a line end; control characters are shown as "?"

    /// Reads what follows the program's name. Options may be mixed with files; what follows "--" is a file,
    /// and so is "-". The first option that asks for an answer or can't be understood decides. "-session" and
    /// its value, which a session manager adds when it restarts a program, are ignored. Options of Qt are
    /// unknown here: its environment variables do the same.
    static CommandLine read(const QByteArrayList& arguments);

    /// Prints the help, the version or the refusal; gives the exit status: 0, 2 after a refusal, 1 if the
    /// answer can't be written. Must not be called for an ordinary start.
    int answer() const;
};

} // namespace torvane
