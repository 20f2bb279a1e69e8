// SPDX-License-Identifier: MIT
// What may stand in a game's file after our operation and the deeds of another program, worked out without
// either: all orders in which they can have come one after the other.
#pragma once

#include "OtherProgram.h"
#include "Situation.h"

#include <functional>

namespace torvane::faults {

/// The file under its name, the one under the name that the other program gives it, and the kept former one.
struct Shelf {
    Content game;
    Content away;
    Content backup;
};

/// What our operation makes of a file; nothing if it has to fail.
using Transform = std::function<Content(const QByteArray&)>;

struct Deeds {
    std::array<Errand, OtherProgram::mostErrands> errands;
    int count = 0;
};

/// All that may be found. After a told failure nothing of ours may be seen; after a success our operation
/// stands somewhere between the deeds, yet not between the two halves of a rewrite.
std::vector<Shelf> possible(const Content& atFirst, const Deeds& deeds,
                            const std::vector<QByteArray>& versions, const Transform& ours, bool isSuccess);

} // namespace torvane::faults
