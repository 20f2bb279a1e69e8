// SPDX-License-Identifier: MIT
// The lines of a tag database, from short lists of words.
#include "DatabaseFile.h"
#include "Samples.h"

#include <array>
#include <cstdio>
#include <random>

namespace torvane::bench {

namespace {
template <size_t count>
const char* oneOf(std::mt19937& random, const std::array<const char*, count>& words) {
    return words[random() % count];
}

std::string titleOf(std::mt19937& random, int number) {
    constexpr std::array first = {"Dragon", "Castle", "Night", "Super", "Moon", "River", "Storm", "Golden"};
    constexpr std::array second = {"Quest", "Race", "Legend", "Puzzle", "Pinball", "Tower"};
    if (number % linesPerRareTitle == 7) return rareTitle;
    return std::string(oneOf(random, first)) + ' ' + oneOf(random, second) + ' ' + std::to_string(number);
}

std::string lineOf(std::mt19937& random, int number) {
    constexpr std::array systems = {"byn", "color", "advance"};
    constexpr std::array companies = {"Acme", "Studio Sur", "Torre", "North Works"};
    constexpr std::array infos = {"Plays well.", "Saves by password.", "Too short.", "With link cable."};
    constexpr std::array kinds = {"SYSTEM", "User"};
    const std::string separator = "\xA7";
    const std::string date = std::to_string(random() % 28 + 1) + "/02/2003";
    return oneOf(random, systems) + separator + titleOf(random, number) + separator +
           oneOf(random, companies) + separator + date + separator + oneOf(random, infos) + separator +
           oneOf(random, kinds) + separator + "author" + std::to_string(random() % 700) + "\r\n";
}
} // namespace

void makeDatabase(const std::string& path, int lines) {
    std::mt19937 random(2003);
    std::FILE* file = std::fopen(path.c_str(), "wb");
    mustHold(file != nullptr);
    for (int i = 0; i < lines; ++i) mustHold(std::fputs(lineOf(random, i).c_str(), file) >= 0);
    mustHold(std::fclose(file) == 0);
}

} // namespace torvane::bench
