// SPDX-License-Identifier: MIT
// Makes program folders with large libraries for the benchmarks to work on.
#pragma once

#include <cstdint>
#include <filesystem>

namespace torvane::bench {

/// The size of a game with content, in bytes; the others are empty.
constexpr std::int64_t filledGameSize = 40960;

/// Makes `folder` a copy of the laid-out program folder `source`, with a library of `count` games: invented
/// titles, a mix of the extensions of the game list, 1,200 games with content of which three in four are
/// tagged, and some files that are not games. The result is always the same. Fails with an exception of the
/// standard library.
void makeLibrary(const std::filesystem::path& source, const std::filesystem::path& folder, int count);

/// Installs the laid-out program folder `source` below a folder that does not exist yet, with all of its
/// files as the tree for new homes. Gives the path of the executable.
std::filesystem::path installProgram(const std::filesystem::path& source,
                                     const std::filesystem::path& folder);

/// Makes the settings of a user who has chosen English and switched the intro off.
void makeSettings(const std::filesystem::path& configurationFolder,
                  const std::filesystem::path& programFolder);

} // namespace torvane::bench
