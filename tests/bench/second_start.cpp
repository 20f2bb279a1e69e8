// SPDX-License-Identifier: MIT
// Starts the program, and then again and again: measures how long a second start takes to hand a file over
// and to end, and for comparison how long the program takes to print its version. Usage: bench_second_start
// PROGRAM GAME ROUNDS; prints the medians of "second" and "version" in nanoseconds. The game is one of the
// program's library.
#include "Samples.h"

#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace torvane::bench {

namespace {
namespace fs = std::filesystem;

constexpr int patience = 20'000; // looks
constexpr useconds_t pause = 1000;

pid_t start(const char* program, const char* argument) {
    const char* words[] = {program, argument, nullptr};
    pid_t child = 0;
    mustHold(posix_spawn(&child, program, nullptr, nullptr, const_cast<char**>(words), environ) == 0);
    return child;
}

void runToEnd(const char* program, const char* argument) {
    int status = 0;
    const pid_t child = start(program, argument);
    mustHold(waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

// The first instance listens as soon as its socket is there.
bool hasSocket(const fs::path& folder) {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_socket()) return true;
    }
    return false;
}

void printMedians(const char* program, const char* game, int rounds) {
    std::vector<std::int64_t> second;
    std::vector<std::int64_t> version;
    for (int round = 0; round < rounds; ++round) {
        second.push_back(timeOf([&] { runToEnd(program, game); }));
        version.push_back(timeOf([&] { runToEnd(program, "--version"); }));
    }
    std::printf("second %" PRId64 "\nversion %" PRId64 "\n", median(second), median(version));
}

int runSecondStarts(const char* program, const char* game, int rounds) {
    std::string folder = (fs::temp_directory_path() / "torvane-second-XXXXXX").string();
    mustHold(mkdtemp(folder.data()) != nullptr);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    const pid_t first = start(program, nullptr);
    for (int look = 0; look < patience && !hasSocket(folder); ++look) usleep(pause);
    const bool isThere = hasSocket(folder);
    if (isThere) printMedians(program, game, rounds);
    kill(first, SIGKILL);
    waitpid(first, nullptr, 0);
    fs::remove_all(folder);
    return isThere ? 0 : 3;
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    return torvane::bench::runSecondStarts(argv[1], argv[2], std::atoi(argv[3]));
}
