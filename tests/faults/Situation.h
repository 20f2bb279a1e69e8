// SPDX-License-Identifier: MIT
// One operation on one set of files, and what may be seen of it.
#pragma once

#include "ProgramParts.h"
#include "Workshop.h"

#include <functional>

namespace torvane::faults {

/// The content of a file, or that there is none.
using Content = std::optional<QByteArray>;

/// What a file that is changed on the side may hold.
struct Aside {
    std::vector<Content> meanwhile;
    std::vector<Content> afterNextStart;
    std::vector<Content> whenDone = {}; ///< after a success that was told; anything of the above if empty
};

/// What must not get lost: it has to stand whole in one of these files at least.
struct Treasure {
    QByteArray bytes;
    std::vector<std::string> places;
};

struct Situation {
    std::string operation; ///< the row of the table that it counts for
    std::string details;
    Tree before;
    std::string subject; ///< the file that the operation changes
    Content former;      ///< what is in it before
    Content fresh;       ///< what is in it afterwards; nothing if the operation has to fail
    QByteArray line;     ///< what is written behind the former content, if that is the way
    std::map<std::string, Aside> asides;
    std::vector<Treasure> treasures;
    bool isBatch = false; ///< of several files, some of which may be changed when another one fails
    std::function<void()> run;

    std::string name() const { return operation + ", " + details; }
};

inline const std::string gameFile = "program/roms/game.gb";
inline const std::string backupFile = "program/roms/data/backup/game.gb";
inline const std::string settingsFile = "config/Torvane/Torvane.conf";

/// All operations on images of a size in bytes, each with nothing, something shorter, something of the same
/// length and something longer in the place of what it writes. They run on the workshop and the parts, which
/// have to live as long. With `brief` only the first and the last of these four.
std::vector<Situation> situations(Workshop& workshop, ProgramParts& parts, qsizetype imageSize, bool brief);

/// The assistant's copies of several games of that size at once, with and without the end of the originals.
/// `isLarge` makes them so many that they share one sync of the whole file system.
std::vector<Situation> imports(Workshop& workshop, ProgramParts& parts, qsizetype imageSize, bool brief,
                               bool isLarge);

} // namespace torvane::faults
