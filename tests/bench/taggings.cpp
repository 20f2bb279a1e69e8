// SPDX-License-Identifier: MIT
// Gives 1,000 games of 1 MiB their first tags in batches, as torvane-tags does, and writes the same lines to
// as many other games plainly, with one sync after each batch. Only the first has to read the games. Usage:
// bench_taggings FOLDER ROUNDS Prints median wall nanoseconds: "tagging", "plain" and "reading".
#include "Samples.h"
#include "catalogue/TagEnds.h"
#include "platform/base/Arrival.h"
#include "platform/base/Parallel.h"
#include "platform/base/Paths.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace torvane::bench {

namespace {
constexpr int games = 1000;
constexpr qsizetype gameSize = 1 << 20;
const TagLine::Fields fields{"Company", "Title", "1/2/03", "Info", QByteArray::number(gameSize)};

class Library {
public:
    explicit Library(QByteArray folder) : m_folder(std::move(folder)) {
        QByteArray image(gameSize, '\0');
        for (qsizetype i = 0; i < gameSize; ++i) image[i] = static_cast<char>(i * 2654435761U >> 13);
        for (int i = 0; i < games; ++i) {
            const int file = open(path(i).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
            mustHold(write(file, image.constData(), static_cast<size_t>(gameSize)) == gameSize);
            close(file);
        }
        sync();
    }
    ~Library() {
        for (int i = 0; i < games; ++i) unlink(path(i).constData());
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void tag() const {
        EndChanges changes({}, TagEnds::remember);
        for (int i = 0; i < games; ++i) {
            changes.add(Paths::spelled(path(i)),
                        [](const Handle& file) { return TagEnds::withTag(file, fields); });
        }
        for (const EndChanges::Result& result : changes.finish()) mustHold(result.isDone);
    }
    // The yardstick: what any program does that knows nothing of the games.
    void writeLines() const {
        const QByteArray line = TagLine::build(fields);
        const int folder = open(m_folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int i = 0; i < games; ++i) {
            const int file = open(path(i).constData(), O_WRONLY | O_APPEND | O_CLOEXEC);
            mustHold(write(file, line.constData(), static_cast<size_t>(line.size())) == line.size());
            close(file);
            const bool isFull = (i + 1) % static_cast<int>(Arrival::largestBatch) == 0;
            if (isFull || i == games - 1) mustHold(syncfs(folder) == 0);
        }
        close(folder);
    }
    // What a first tag can't do without: the marker of another one may be anywhere in the game.
    void readGames() const {
        inParallel(games, [this](size_t index) {
            std::array<char, 64 << 10> block{};
            const int file = open(path(static_cast<int>(index)).constData(), O_RDONLY | O_CLOEXEC);
            ssize_t all = 0;
            for (ssize_t got = 1; got > 0; all += got) got = read(file, block.data(), block.size());
            mustHold(all == gameSize);
            close(file);
        });
    }

private:
    QByteArray path(int index) const { return m_folder + '/' + QByteArray::number(index) + ".gb"; }

    QByteArray m_folder;
};

int runTaggings(const QByteArray& folder, int rounds) {
    std::vector<std::int64_t> ours;
    std::vector<std::int64_t> plain;
    std::vector<std::int64_t> reading;
    for (int round = 0; round < rounds; ++round) {
        {
            const Library library(folder);
            plain.push_back(timeOf([&] { library.writeLines(); }));
        }
        const Library library(folder);
        reading.push_back(timeOf([&] { library.readGames(); }));
        ours.push_back(timeOf([&] { library.tag(); }));
    }
    std::printf("tagging %" PRId64 "\nplain %" PRId64 "\nreading %" PRId64 "\n", median(ours), median(plain),
                median(reading));
    return 0;
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    return torvane::bench::runTaggings(argv[1], std::atoi(argv[2]));
}
