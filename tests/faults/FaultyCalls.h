// SPDX-License-Identifier: MIT
// A failing system: this library interposes on the C library, counts this process's file calls while it is
// armed, and makes chosen ones fail, stop halfway, or be the last ones. The harness decides which, and checks
// the results.
#pragma once

#include <array>

namespace torvane::faults {

/// The kinds of calls. An open that creates a file or may write to one is a `create`.
enum class Call {
    open,
    create,
    read,
    write,
    sync,
    syncAll, ///< of a whole file system
    rename,
    link,
    unlink,
    truncate,
    makeFolder,
    rights,
    look,
    close
};
const char* nameOf(Call call);

enum class Fault {
    none,
    error,        ///< the call is not made and fails
    doneButFails, ///< the call is made but reports failure, as if its answer were lost
    half,         ///< a read or a write does half of its bytes
    fromNowOn,    ///< all such calls fail, a write halfway: the disk is full, read-only or dead
    killBefore,
    killHalf, ///< in the middle of a write
    killAfter,
    meet, ///< another program acts first
};

/// One fault, at one call.
struct Strike {
    Fault fault = Fault::none;
    int error = 0; ///< an errno value
    int at = 0;    ///< which of the calls that can have this fault, counted from 1
    int seen = 0;  ///< how many such calls there were
    bool isStruck() const { return at > 0 && seen >= at; }
};

/// The faults to inject, and what came of them. Must be in memory that parent and child share.
struct Plan {
    std::array<Strike, 2> strikes{};
    std::array<char, 512> subject{};    ///< the real path of the file that the operation changes
    void (*meeting)(int) = nullptr;     ///< called with the index of the strike
    int made = 0;                       ///< calls so far
    int syncs = 0;                      ///< syncs of single files and folders among them
    int struckAt = 0;                   ///< the index of the call that was struck last; 0 for none
    Call struckCall = Call::open;       ///< its kind
    std::array<char, 512> struckName{}; ///< and its file
    int exchangedAt = 0;                ///< the last call that gave the subject's name to a file
};

/// Counts the calls of this process from now on.
void arm(Plan& plan);
void disarm();

} // namespace torvane::faults
