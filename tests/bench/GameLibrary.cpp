// SPDX-License-Identifier: MIT
// Titles made from a few words, and games with and without tags.
#include "GameLibrary.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace torvane::bench {

namespace fs = std::filesystem;

namespace {
constexpr int gamesWithContent = 1200;

constexpr std::array first = {"Amber", "Brass",  "Café",   "Dusty", "Elder",    "Frozen", "Golden", "Hidden",
                              "Ivory", "Jagged", "Kite",   "Lost",  "Midnight", "Noble",  "Outer",  "Paper",
                              "Quick", "Rusty",  "Silent", "Tiny",  "Upper",    "Velvet", "Wild",   "Zinc"};
constexpr std::array second = {"Anchor",  "Bridge",  "Castle",  "Dungeon", "Engine",  "Forest",   "Garden",
                               "Harbour", "Island",  "Journey", "Kingdom", "Lantern", "Mountain", "Nest",
                               "Orchard", "Pirates", "Quest",   "Racers",  "Signal",  "Tower"};
constexpr std::array region = {" (Europe)", " (USA)", " (Japan)", " (World) (Rev 1)", "", " [!]"};
// Most of a library is for the two older consoles; upper case and a second dot occur, too.
constexpr std::array ending = {".gb", ".gbc", ".gba", ".zip", ".gb", ".gbc", ".gb", ".GB", ".v1.gb", ".gba"};

template <typename Words>
std::string word(const Words& words, int number) {
    return words[static_cast<size_t>(number) % words.size()];
}

std::string gameName(int number) {
    const int titles = static_cast<int>(first.size() * second.size());
    const int sequel = number / titles;
    std::string name = word(first, number) + ' ' + word(second, number / static_cast<int>(first.size()));
    if (sequel > 0) name += ' ' + std::to_string(sequel + 1);
    return name + word(region, number * 7 + sequel) + word(ending, number * 3 + sequel);
}

// A tag is one line of code page 1252 after the image.
std::string gameContent(int number) {
    const std::string size = std::to_string(filledGameSize);
    std::string tag = "ID3TAG\xA7"
                      "Studio " +
                      std::to_string(number % 90) +
                      "\xA7"
                      "Game " +
                      std::to_string(number) +
                      "\xA7"
                      "01/02/1999\xA7"
                      "Plays well on a rainy day.\xA7" +
                      size + "\xA7\r\n";
    if (number % 4 == 3) tag.clear();
    std::string content(static_cast<size_t>(filledGameSize) - tag.size(), '\x5A');
    return content + tag;
}

void writeFile(const fs::path& path, const std::string& content) {
    std::ofstream file(path, std::ios::binary);
    file.exceptions(std::ios::badbit | std::ios::failbit);
    file << content;
    file.close();
}

void makeGames(const fs::path& roms, int count) {
    std::vector<int> order(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) order[static_cast<size_t>(i)] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    const int every = count / gamesWithContent;
    for (const int number : order) {
        const bool hasContent = number % every == 0;
        writeFile(roms / gameName(number), hasContent ? gameContent(number / every) : std::string());
    }
    for (int i = 0; i < count / 50; ++i) writeFile(roms / (gameName(i) + ".sav"), {});
    writeFile(roms / "read me.txt", "Not a game.\r\n");
}
} // namespace

void makeLibrary(const fs::path& source, const fs::path& folder, int count) {
    for (const char* part : {"data", "emuladores"}) {
        fs::create_directories(folder / part);
        fs::copy(source / part, folder / part, fs::copy_options::recursive);
    }
    fs::copy(source / "torvane", folder / "torvane");
    fs::create_directories(folder / "ziptemp");
    fs::create_directories(folder / "roms");
    makeGames(folder / "roms", count);
}

fs::path installProgram(const fs::path& source, const fs::path& folder) {
    fs::create_directories(folder / "games");
    fs::create_directories(folder / "share" / "torvane");
    fs::create_directory_symlink(source, folder / "share" / "torvane" / "tree");
    fs::copy(source / "torvane", folder / "games" / "torvane");
    return folder / "games" / "torvane";
}

void makeSettings(const fs::path& configurationFolder, const fs::path& programFolder) {
    fs::create_directories(configurationFolder / "Torvane");
    const std::string language = programFolder.string() + "/data/lang/lang_eng.tvl";
    writeFile(configurationFolder / "Torvane" / "Torvane.conf",
              "[Config]\nLanguage=" + language + "\nIntro=0\nTray=True\nIcon=0\nStart=0\n");
}

} // namespace torvane::bench
