// SPDX-License-Identifier: MIT
// Reading the command line, and the answers that need no window.
#include "CommandLine.h"

#include <algorithm>
#include <cstdio>

namespace torvane {

namespace {
constexpr const char* help = "Usage: torvane [OPTION]... [FILE]...\n"
                             "Organizes Game Boy, Game Boy Color and Game Boy Advance games and plays them.\n"
                             "\n"
                             "A FILE that is a game of the library is selected; any other file or folder is\n"
                             "given to the assistant, which copies it into the library. If Torvane is\n"
                             "running with the same folder already, that one comes to the front and gets\n"
                             "the files.\n"
                             "\n"
                             "      --folder PATH  use this folder with games, languages and data\n"
                             "      --help         show this help and exit\n"
                             "      --version      show the version and exit\n";

class Reader {
public:
    explicit Reader(const QByteArrayList& arguments) : m_rest(arguments) {}

    CommandLine result() {
        while (!m_rest.isEmpty() && m_line.wish == CommandLine::Wish::start) take(m_rest.takeFirst());
        return m_line;
    }

private:
    void take(const QByteArray& argument) {
        if (m_areAllFiles || !argument.startsWith('-') || argument == "-") return takeFile(argument);
        if (argument == "--") {
            m_areAllFiles = true;
        } else if (argument == "-session") {
            if (!m_rest.isEmpty()) m_rest.removeFirst();
        } else {
            takeOption(argument);
        }
    }
    void takeFile(const QByteArray& name) {
        if (name.isEmpty()) return refuse("the name of a file is empty");
        m_line.files.append(name);
    }
    void takeOption(const QByteArray& argument) {
        const qsizetype equals = argument.indexOf('=');
        const QByteArray name = equals < 0 ? argument : argument.first(equals);
        const bool isQuestion = name == "--help" || name == "--version";
        if (!isQuestion && name != "--folder") return refuse("unknown option '" + printable(argument) + "'");
        if (isQuestion && equals >= 0) return refuse("option '" + name + "' takes no value");
        if (isQuestion) {
            m_line.wish = name == "--help" ? CommandLine::Wish::help : CommandLine::Wish::version;
            return;
        }
        m_line.folder = equals >= 0        ? argument.sliced(equals + 1)
                        : m_rest.isEmpty() ? QByteArray()
                                           : m_rest.takeFirst();
        if (m_line.folder.isEmpty()) refuse("option '--folder' needs a path");
    }
    void refuse(const QByteArray& fault) {
        m_line.wish = CommandLine::Wish::refusal;
        m_line.fault = fault;
    }

    QByteArrayList m_rest;
    CommandLine m_line;
    bool m_areAllFiles = false;
};
} // namespace

QByteArray printable(QByteArray text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, '?');
    return text;
}

CommandLine CommandLine::read(const QByteArrayList& arguments) { return Reader(arguments).result(); }

int CommandLine::answer() const {
    if (wish == Wish::refusal) {
        std::fprintf(stderr, "torvane: %s\nTry 'torvane --help'.\n", fault.constData());
        return 2;
    }
    std::fputs(wish == Wish::help ? help : "torvane " TORVANE_VERSION "\n", stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}

} // namespace torvane
