// SPDX-License-Identifier: MIT
// The loops over calls and faults.
#include "EveryCall.h"

#include <cerrno>

namespace torvane::faults {

namespace {
constexpr int mostCalls = 5000; // an operation that makes more is in an endless loop

constexpr std::array<Strike, 9> briefKinds = {{{Fault::error, EIO},
                                               {Fault::error, EINTR},
                                               {Fault::doneButFails, EIO},
                                               {Fault::half},
                                               {Fault::fromNowOn, ENOSPC},
                                               {Fault::fromNowOn, EROFS},
                                               {Fault::killBefore},
                                               {Fault::killHalf},
                                               {Fault::killAfter}}};
constexpr std::array<Strike, 5> furtherKinds = {{{Fault::error, ENOSPC},
                                                 {Fault::error, EACCES},
                                                 {Fault::error, EROFS},
                                                 {Fault::error, EDQUOT},
                                                 {Fault::fromNowOn, EIO}}};
constexpr std::array<Strike, 4> firstOfTwo = {
    {{Fault::error, EIO}, {Fault::error, EACCES}, {Fault::half}, {Fault::fromNowOn, ENOSPC}}};
constexpr std::array<Strike, 3> secondOfTwo = {
    {{Fault::error, EIO}, {Fault::doneButFails, EIO}, {Fault::killBefore}}};

Strike at(Strike kind, int call) {
    kind.at = call;
    return kind;
}

void strikeWith(Runner& runner, const Situation& situation, const Strike& kind) {
    for (int call = 1; call < mostCalls; ++call) {
        if (!runner.run(situation, at(kind, call)).strikes[0].isStruck()) return;
    }
}
// The second strike is counted from the call after the first.
void strikeInPairs(Runner& runner, const Situation& situation, const Strike& first, const Strike& second) {
    bool isFirstStruck = true;
    for (int i = 1; isFirstStruck && i < mostCalls; ++i) {
        bool isSecondStruck = true;
        for (int j = 1; isSecondStruck && j < mostCalls; ++j) {
            const Plan& plan = runner.run(situation, at(first, i), at(second, j));
            isFirstStruck = plan.strikes[0].isStruck();
            isSecondStruck = plan.strikes[1].isStruck();
        }
    }
}
} // namespace

void strikeEveryCall(Runner& runner, const Situation& situation, bool brief) {
    for (const Strike& kind : briefKinds) strikeWith(runner, situation, kind);
    if (brief) return;
    for (const Strike& kind : furtherKinds) strikeWith(runner, situation, kind);
}

void strikeEveryTwoCalls(Runner& runner, const Situation& situation, bool brief) {
    if (brief) return strikeInPairs(runner, situation, firstOfTwo.front(), secondOfTwo.front());
    for (const Strike& first : firstOfTwo) {
        for (const Strike& second : secondOfTwo) strikeInPairs(runner, situation, first, second);
    }
}

} // namespace torvane::faults
