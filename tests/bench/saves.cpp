// SPDX-License-Identifier: MIT
// Saves the tag of a game of 32 MiB that has one, which strips and appends. In turns with it, copies the same
// file with one sync. Usage: bench_saves FOLDER ROUNDS
// Prints median wall nanoseconds: "save" and "copy".
#include "Samples.h"
#include "catalogue/ID3.h"
#include "platform/base/Paths.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace torvane::bench {

namespace {
constexpr qsizetype gameSize = 32 << 20;

struct NoMessages : MessageBoxes {
    int MsgBox(const QString&, int, const QString&) override { return MsgBoxFlags::answerOk; }
};

// The yardstick: what any program does to copy a file and sync it.
void copyPlainly(const QByteArray& from, const QByteArray& to) {
    const int source = open(from.constData(), O_RDONLY | O_CLOEXEC);
    const int target = open(to.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    mustHold(source >= 0 && target >= 0);
    QByteArray block(1 << 20, '\0');
    for (;;) {
        const ssize_t got = read(source, block.data(), static_cast<size_t>(block.size()));
        mustHold(got >= 0);
        if (got == 0) break;
        mustHold(write(target, block.constData(), static_cast<size_t>(got)) == got);
    }
    mustHold(fsync(target) == 0);
    close(source);
    close(target);
}

int runSaves(const QByteArray& folder, int rounds) {
    const QByteArray game = folder + "/saved.gba";
    const QByteArray copy = folder + "/copied.gba";
    {
        std::FILE* file = std::fopen(game.constData(), "wb");
        mustHold(file != nullptr);
        QByteArray image(gameSize, '\0');
        for (qsizetype i = 0; i < image.size(); ++i) image[i] = static_cast<char>(i * 2654435761U >> 13);
        mustHold(std::fwrite(image.constData(), 1, static_cast<size_t>(gameSize), file) == gameSize);
        std::fclose(file);
    }
    const Globals globals;
    const LanguageTables noTexts(globals);
    NoMessages messages;
    ID3 id3(globals, noTexts, messages);
    id3.NewCompany = id3.NewTitle = id3.NewInfo = id3.NewDate = QStringLiteral("bench");
    id3.AppendRomTag(Paths::spelled(game));
    std::vector<std::int64_t> saves;
    std::vector<std::int64_t> copies;
    for (int round = 0; round <= rounds; ++round) {
        const auto saving = timeOf([&] { id3.SaveRomTag(Paths::spelled(game), [] {}); });
        unlink(copy.constData());
        const auto copying = timeOf([&] { copyPlainly(game, copy); });
        if (round == 0) continue; // the first round warms up
        saves.push_back(saving);
        copies.push_back(copying);
    }
    std::printf("save %" PRId64 "\ncopy %" PRId64 "\n", median(saves), median(copies));
    return 0;
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    return torvane::bench::runSaves(argv[1], std::atoi(argv[2]));
}
