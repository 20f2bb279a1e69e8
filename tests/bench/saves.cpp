// SPDX-License-Identifier: MIT
// Saves the tag of a game of 32 MiB and of one of 32 KiB in turns: both have one, and only their ends change.
// Usage: bench_saves FOLDER ROUNDS
// Prints median wall nanoseconds: "large" and "small".
#include "Samples.h"
#include "catalogue/ID3.h"
#include "platform/base/Paths.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>

namespace torvane::bench {

namespace {
struct NoMessages : MessageBoxes {
    int MsgBox(const QString&, int, const QString&) override { return MsgBoxFlags::answerOk; }
};

QString makeGame(const QByteArray& path, qsizetype size) {
    std::FILE* file = std::fopen(path.constData(), "wb");
    mustHold(file != nullptr);
    QByteArray image(size, '\0');
    for (qsizetype i = 0; i < size; ++i) image[i] = static_cast<char>(i * 2654435761U >> 13);
    mustHold(std::fwrite(image.constData(), 1, static_cast<size_t>(size), file) == static_cast<size_t>(size));
    mustHold(std::fclose(file) == 0);
    return Paths::spelled(path);
}

int runSaves(const QByteArray& folder, int rounds) {
    const QString large = makeGame(folder + "/large.gba", 32 << 20);
    const QString small = makeGame(folder + "/small.gb", 32 << 10);
    const Globals globals;
    const LanguageTables noTexts(globals);
    NoMessages messages;
    ID3 id3(globals, noTexts, messages);
    id3.NewCompany = id3.NewTitle = id3.NewInfo = id3.NewDate = QStringLiteral("bench");
    id3.SaveRomTag(large, [] {});
    id3.SaveRomTag(small, [] {});
    std::vector<std::int64_t> ofLarge;
    std::vector<std::int64_t> ofSmall;
    for (int round = 0; round <= rounds * 5; ++round) {
        const auto saving = timeOf([&] { id3.SaveRomTag(large, [] {}); });
        const auto savingSmall = timeOf([&] { id3.SaveRomTag(small, [] {}); });
        if (round == 0) continue; // the first round warms up
        ofLarge.push_back(saving);
        ofSmall.push_back(savingSmall);
    }
    std::printf("large %" PRId64 "\nsmall %" PRId64 "\n", median(ofLarge), median(ofSmall));
    return 0;
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    return torvane::bench::runSaves(argv[1], std::atoi(argv[2]));
}
