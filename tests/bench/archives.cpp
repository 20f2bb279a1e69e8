// SPDX-License-Identifier: MIT
// Opens archives of the library in their window, up to the painted list. In turns with it, `unzip` unpacks
// the same game of 32 MiB into an empty folder. Usage: bench_archives PROGRAM_FOLDER CONFIGURATION_FOLDER
// ROUNDS, with no other archives in the library. Prints median wall nanoseconds: "open" and "unzip" of one
// game, "many" of an archive of 10,000 small ones.
#include "ProgramUnderBench.h"
#include "Samples.h"

#include <QApplication>
#include <QProcess>
#include <cinttypes>
#include <filesystem>
#include <random>
#include <zip.h>

namespace torvane::bench {

namespace fs = std::filesystem;

namespace {
constexpr int smallMembers = 10'000;
constexpr size_t largeSize = 32 << 20;
const std::string largeName = "large.zip";
const std::string manyName = "many.zip";

// About half of it is compressible, as with games.
std::vector<char> gameImage(size_t size) {
    constexpr size_t block = 64;
    std::mt19937 random(7);
    std::vector<char> image(size);
    for (size_t at = 0; at < size; at += block) {
        const bool repeats = at > block && random() % 2 == 0;
        const size_t from = repeats ? random() % (at / block) * block : 0;
        for (size_t i = 0; i < std::min(block, size - at); ++i)
            image[at + i] = repeats ? image[from + i] : static_cast<char>(random());
    }
    return image;
}

void writeArchive(const std::string& path, int members, const std::vector<char>& image) {
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    mustHold(archive != nullptr);
    for (int i = 0; i < members; ++i) {
        const std::string name = "game" + std::to_string(i) + ".gb";
        zip_source_t* source = zip_source_buffer(archive, image.data(), image.size(), 0);
        mustHold(zip_file_add(archive, name.c_str(), source, 0) >= 0);
    }
    mustHold(zip_close(archive) == 0);
}

class Viewer {
public:
    Viewer(const char* programFolder, const char* configurationFolder)
        : m_bench(programFolder, configurationFolder), m_main(m_bench.startedMainWindow()) {}

    void choose(const std::string& name) {
        const auto names = m_main.Games.names();
        for (int i = 0; i < names->count(); ++i) {
            if (names->name(i) == QString::fromStdString(name)) return m_main.selectGame(i);
        }
        mustHold(false);
    }
    // The handler serves events until the members are listed.
    void open() {
        emit m_main.Zipper.Click();
        window().repaint();
        QApplication::sync();
    }
    void close(int expectedRows) {
        mustHold(window().ListView1.rowCount() == expectedRows);
        emit window().chameleonButton1.Click();
        QApplication::processEvents();
        mustHold(m_bench.program.loaded<ZIP_Viewer>() == nullptr);
    }

private:
    ZIP_Viewer& window() {
        ZIP_Viewer* window = m_bench.program.loaded<ZIP_Viewer>();
        mustHold(window != nullptr);
        return *window;
    }

    ProgramUnderBench m_bench;
    MainFrm& m_main;
};

void unzip(const std::string& archive, const std::string& folder) {
    const QStringList words = {QStringLiteral("-q"), QString::fromStdString(archive), QStringLiteral("-d"),
                               QString::fromStdString(folder)};
    mustHold(QProcess::execute(QStringLiteral("unzip"), words) == 0);
}

// Gives the unpacked files second names. Before making a file, some file systems check every inode that was
// deleted in the last minute: the samples would include that cost.
void keepInodes(const fs::path& folder, const fs::path& kept) {
    fs::create_directories(kept);
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        fs::create_hard_link(entry.path(), kept / entry.path().filename());
}

int runArchives(const std::string& program, const char* configurationFolder, int rounds) {
    writeArchive(program + "/roms/" + largeName, 1, gameImage(largeSize));
    writeArchive(program + "/roms/" + manyName, smallMembers, gameImage(512));
    Viewer viewer(program.c_str(), configurationFolder);
    std::vector<std::int64_t> opening;
    std::vector<std::int64_t> unzipping;
    std::vector<std::int64_t> many;
    for (int round = 0; round <= rounds; ++round) {
        viewer.choose(largeName);
        opening.push_back(timeOf([&] { viewer.open(); }));
        viewer.close(1);
        const std::string unzipped = program + "/unzipped";
        unzipping.push_back(timeOf([&] { unzip(program + "/roms/" + largeName, unzipped); }));
        fs::remove_all(unzipped);
        viewer.choose(manyName);
        many.push_back(timeOf([&] { viewer.open(); }));
        keepInodes(program + "/ziptemp/many", program + "/kept" + std::to_string(round));
        viewer.close(smallMembers);
        if (round > 0) continue; // the first round warms up
        for (auto* samples : {&opening, &unzipping, &many}) samples->clear();
    }
    std::printf("open %" PRId64 "\nunzip %" PRId64 "\nmany %" PRId64 "\n", median(opening), median(unzipping),
                median(many));
    std::fflush(nullptr);
    std::_Exit(0);
}
} // namespace

} // namespace torvane::bench

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 4) return 2;
    return torvane::bench::runArchives(argv[1], argv[2], std::atoi(argv[3]));
}
