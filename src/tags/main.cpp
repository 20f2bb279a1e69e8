// SPDX-License-Identifier: MIT
// Entry point of torvane-tags. It needs no application object: nothing here waits for events.
#include "Tool.h"
#include "tags/rows/Output.h"
#include "tags/session/Reports.h"

#include <algorithm>
#include <clocale>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {
// Of a standard descriptor that is closed, the next file to be opened would get the number: what is printed
// would go into a game. What takes its place can be read and not written to, so that the failure shows.
void occupyStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) < 0 && open("/dev/null", O_RDONLY) != descriptor) _exit(1);
    }
}
} // namespace

int main(int argc, char** argv) {
    occupyStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe shows by the result of writing
    std::signal(SIGXFSZ, SIG_IGN); // as does a limit on the size of files
    // For the widths of characters. Every system has this locale, and names are UTF-8 whatever the user's is.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    torvane::Output output(STDOUT_FILENO);
    torvane::Reports reports(STDERR_FILENO);
    return torvane::Tool(output, reports).run({argv + std::min(argc, 1), argv + argc});
}
