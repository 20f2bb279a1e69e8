// SPDX-License-Identifier: MIT
// One operation on one set of files, and its permitted results.
#pragma once

#include "ProgramParts.h"
#include "Workshop.h"

#include <functional>

namespace torvane::faults {

/// The content of a file; nothing if there is no file.
using Content = std::optional<QByteArray>;

/// What a file that also changes may hold.
struct Aside {
    std::vector<Content> meanwhile;
    std::vector<Content> afterNextStart;
    std::vector<Content> whenDone = {}; ///< after a reported success; if empty, any of the above
    bool isFreeMeanwhile = false;       ///< before the next start it may hold anything
};

/// Content that must not get lost: at least one of these files must contain it completely.
struct Treasure {
    QByteArray bytes;
    std::vector<std::string> places;
};

struct Situation {
    std::string operation; ///< the row of the table that it counts towards
    std::string details;
    Tree before;
    std::string subject; ///< the file that the operation changes
    Content old;         ///< its content before
    Content fresh;       ///< its content afterwards; nothing if the operation must fail
    /// Where the part of the file begins that is changed in place, in bytes, if any is: interrupted, it may
    /// be a mixture of the old and the new one until the next start.
    std::optional<qsizetype> end;
    std::map<std::string, Aside> asides;
    std::vector<Treasure> treasures;
    bool isBatch = false; ///< several files, some of which may be changed when another one fails
    std::function<void()> run;
    /// What the next start does on its own to complete the operation; nothing for operations of the user.
    std::function<void()> resume = {};

    std::string name() const { return operation + ", " + details; }
};

inline const std::string gameFile = "program/roms/game.gb";
inline const std::string backupFile = "program/roms/data/backup/game.gb";
inline const std::string settingsFile = "config/Torvane/Torvane.conf";
inline const std::string versionFile = "program/data/version.dat";
inline const std::string sharedPages = "program/data/url.dat";
inline const std::string ownPages = "program/data/url_perso.dat";
inline const std::string ownPagesBackup = "program/data/url_perso.bak";

/// The next start: completes the operation, if it is one that a start completes, and removes leftovers.
void startNext(const Workshop& workshop, const Situation& situation);

/// What is where an operation writes.
enum class Standing { none, shorter, equal, longer };
using Standings = std::vector<Standing>;
inline const Standings everyStanding = {Standing::none, Standing::shorter, Standing::equal, Standing::longer};
inline const Standings extremes = {Standing::none, Standing::longer};
inline const Standings onlyLonger = {Standing::longer};

/// Whether an operation is on a file that is as large beside a large game as beside a small one.
bool isOnSmallFile(const std::string& operation);
/// All operations on images of a size in bytes, each in all these situations. They use the workshop and the
/// parts, which must outlive them.
std::vector<Situation> situations(Workshop& workshop, ProgramParts& parts, qsizetype imageSize,
                                  const Standings& standings);

/// What is done to several games of that size at once: the assistant's copies, with and without deleting the
/// originals, and tags.
/// `isLarge` uses so many games that they share one sync of the whole file system.
std::vector<Situation> batches(Workshop& workshop, ProgramParts& parts, qsizetype imageSize,
                               const Standings& standings, bool isLarge);

} // namespace torvane::faults
