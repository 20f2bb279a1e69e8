// SPDX-License-Identifier: MIT
// What a game's file may hold after our operation and the deeds of another program. Worked out without
// running either, from all orders in which they may have happened.
#pragma once

#include "OtherProgram.h"
#include "Situation.h"

#include <functional>

namespace torvane::faults {

/// The file under its name, the one under the name that the other program gives it, and the backup of the old
/// one.
struct Shelf {
    Content game;
    Content away;
    Content backup;
};

/// What our operation makes of a file; nothing if it must fail.
using Transform = std::function<Content(const QByteArray&)>;

struct Deeds {
    std::array<Errand, OtherProgram::mostErrands> errands;
    int count = 0;
};

/// All permitted results. After a reported failure nothing of ours may be seen; after a success our operation
/// happened somewhere between the deeds, but not between the two halves of a rewrite.
std::vector<Shelf> possible(const Content& atFirst, const Deeds& deeds,
                            const std::vector<QByteArray>& versions, const Transform& ours, bool isSuccess);

} // namespace torvane::faults
