// SPDX-License-Identifier: MIT
// The system as it is on a bad day: a library that stands in front of the C library, counts the file calls of
// this process while it is armed, and makes chosen ones fail, stop halfway, or be the last ones. What is
// called meanwhile, and what for, is the harness's business.
#pragma once

#include <array>

namespace torvane::faults {

/// The kinds of calls. An open that makes a file or may write into one is a `create`.
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
    toldAsFailed, ///< the call is made and fails all the same, as with an answer lost on the way
    half,         ///< a read or a write does half of its bytes
    fromNowOn,    ///< all calls of that sort fail, a write halfway: a disk is full, read-only or dead
    killBefore,
    killHalf, ///< in the middle of a write
    killAfter,
    meet, ///< another program is given time first
};

/// One fault, at one call.
struct Strike {
    Fault fault = Fault::none;
    int error = 0; ///< an errno value
    int at = 0;    ///< which of the calls that the fault may befall, counted from 1
    int seen = 0;  ///< how many of them there were
    bool isStruck() const { return at > 0 && seen >= at; }
};

/// What is to go wrong and what came of it. Lies in memory that parent and child share.
struct Plan {
    std::array<Strike, 2> strikes{};
    std::array<char, 512> subject{};    ///< the real path of the file that is being changed
    void (*meeting)(int) = nullptr;     ///< called with the index of the strike
    int made = 0;                       ///< calls so far
    int syncs = 0;                      ///< syncs of single files and folders among them
    int struckAt = 0;                   ///< the number of the call that was struck last; 0 for none
    Call struckCall = Call::open;       ///< what it was
    std::array<char, 512> struckName{}; ///< and of which file
    int exchangedAt = 0;                ///< the call that gave the subject's name to a file last
};

/// From now on the calls of this process count.
void arm(Plan& plan);
void disarm();

} // namespace torvane::faults
