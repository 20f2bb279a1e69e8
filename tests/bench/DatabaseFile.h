// SPDX-License-Identifier: MIT
// Makes a tag database for the benchmarks to filter.
#pragma once

#include <string>

namespace torvane::bench {

/// One line in so many has this title.
constexpr int linesPerRareTitle = 1000;
constexpr const char* rareTitle = "The Lantern of the North";

/// Writes a file of so many complete lines, about 75 bytes each, with invented entries. The result is always
/// the same. Ends the process if the file can't be written.
void makeDatabase(const std::string& path, int lines);

} // namespace torvane::bench
