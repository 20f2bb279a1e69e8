// SPDX-License-Identifier: MIT
// Reading the command line, and the answers that need no window.
#include "CommandLine.h"
#include "core/Arguments.h"

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

using Kind = OptionForm::Kind;
const std::vector<OptionForm> programOptions = {
    {"--help", Kind::question, {}}, {"--version", Kind::question, {}}, {"--folder", Kind::value, "a path"}};

QByteArrayList withoutSession(QByteArrayList arguments) {
    const qsizetype session = arguments.indexOf("-session");
    const qsizetype dashes = arguments.indexOf("--");
    if (session >= 0 && (dashes < 0 || session < dashes)) {
        arguments.remove(session, std::min<qsizetype>(2, arguments.size() - session));
    }
    return arguments;
}

CommandLine::Wish wishOf(const Arguments& read) {
    if (!read.fault.isEmpty()) return CommandLine::Wish::refusal;
    if (read.has("--help")) return CommandLine::Wish::help;
    return read.has("--version") ? CommandLine::Wish::version : CommandLine::Wish::start;
}
} // namespace

CommandLine CommandLine::read(const QByteArrayList& arguments) {
    const Arguments read = Arguments::read(withoutSession(arguments), programOptions);
    return {wishOf(read), read.value("--folder").value_or(QByteArray()), read.operands, read.fault};
}

int CommandLine::answer() const {
    if (wish == Wish::refusal) {
        std::fprintf(stderr, "torvane: %s\nTry 'torvane --help'.\n", fault.constData());
        return 2;
    }
    std::fputs(wish == Wish::help ? help : "torvane " TORVANE_VERSION "\n", stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}

} // namespace torvane
