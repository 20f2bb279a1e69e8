// SPDX-License-Identifier: MIT
// Lets the assistant copy a folder of 1,000 games into an empty library, with its window painted. In turns
// with it runs `cp`, followed by one sync of the file system, because the assistant's copies are synced in
// the end, too. Usage: bench_imports PROGRAM_FOLDER CONFIGURATION_FOLDER ROUNDS, with an empty library.
// Prints median wall nanoseconds: "import", "copy" and "unsynced", the part of "copy" before the sync.
#include "RoundsMain.h"
#include "Samples.h"

#include <QApplication>
#include <QProcess>
#include <cinttypes>
#include <filesystem>
#include <fstream>

namespace torvane::bench {

namespace fs = std::filesystem;

namespace {
constexpr int games = 1000;
// Bytes; most games of the oldest console have 32, 64, 128 or 256 KiB.
constexpr std::array<size_t, 4> sizes = {32 << 10, 64 << 10, 128 << 10, 256 << 10};

void makeGames(const fs::path& folder) {
    fs::create_directories(folder);
    for (int i = 0; i < games; ++i) {
        const size_t size = sizes[static_cast<size_t>(i) % sizes.size()];
        std::ofstream file(folder / ("game" + std::to_string(i) + ".gb"), std::ios::binary);
        file << std::string(size, static_cast<char>('a' + i % 26));
        mustHold(file.good());
    }
}

void sync() { mustHold(QProcess::execute(QStringLiteral("sync"), {}) == 0); }

void copyPlainly(const fs::path& from, const fs::path& to) {
    const QStringList words = {QStringLiteral("-r"), QString::fromStdString(from.string()),
                               QString::fromStdString(to.string())};
    mustHold(QProcess::execute(QStringLiteral("cp"), words) == 0);
}

// Syncs, so that nothing is left to be written when a sample begins.
void makeEmpty(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    sync();
}

std::ptrdiff_t countIn(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

void runImports(ProgramUnderBench& bench, const std::string& folder, int rounds) {
    const fs::path program = folder;
    const fs::path source = program / "incoming";
    const fs::path library = program / "roms";
    const fs::path copied = program / "copied";
    makeGames(source);
    makeEmpty(library);
    bench.startedMainWindow();
    NewAssistant* assistant = bench.program.loaded<NewAssistant>();
    mustHold(assistant != nullptr);
    std::vector<std::int64_t> importing;
    std::vector<std::int64_t> copying;
    std::vector<std::int64_t> unsynced;
    for (int round = 0; round <= rounds; ++round) {
        makeEmpty(library);
        importing.push_back(timeOf([&] { assistant->take({Paths::spelled(source.c_str())}); }));
        mustHold(countIn(library) == games);
        makeEmpty(copied);
        unsynced.push_back(timeOf([&] { copyPlainly(source, copied); }));
        copying.push_back(unsynced.back() + timeOf(sync));
        if (round > 0) continue; // the first round warms up
        for (auto* samples : {&importing, &copying, &unsynced}) samples->clear();
    }
    std::printf("import %" PRId64 "\ncopy %" PRId64 "\nunsynced %" PRId64 "\n", median(importing),
                median(copying), median(unsynced));
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    return torvane::bench::measureInRounds(argc, argv, torvane::bench::runImports);
}
