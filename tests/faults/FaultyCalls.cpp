// SPDX-License-Identifier: MIT
// Decides which call is struck, and how.
#include "Through.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace torvane::faults {

namespace {
// Allocates no memory: these functions are called from anywhere.
Plan* armed = nullptr;
bool isOwnWork = false;

bool isGrowth(Call call) {
    return call == Call::create || call == Call::write || call == Call::rename || call == Call::link ||
           call == Call::makeFolder;
}

bool isChange(Call call) {
    return isGrowth(call) || call == Call::unlink || call == Call::truncate || call == Call::rights;
}

bool isOfSort(Call call, int error) {
    if (error == ENOSPC) return isGrowth(call);
    return error == EROFS ? isChange(call) : call != Call::close;
}

bool canBefall(const Strike& strike, Call call) {
    switch (strike.fault) {
    case Fault::none: return false;
    case Fault::doneButFails: return isChange(call) || call == Call::sync || call == Call::syncAll;
    case Fault::half: return call == Call::read || call == Call::write;
    case Fault::fromNowOn: return isOfSort(call, strike.error);
    case Fault::killHalf: return call == Call::write;
    default: return true;
    }
}

// Whether a call is struck. A second strike is counted from the call after the first.
bool isDue(Strike& strike, Call call, bool counts) {
    if (!counts || !canBefall(strike, call)) return false;
    ++strike.seen;
    return strike.seen == strike.at || (strike.isStruck() && strike.fault == Fault::fromNowOn);
}

void remember(Call call, const Target& target) {
    armed->struckAt = armed->made;
    armed->struckCall = call;
    pathOf(target, armed->struckName.data(), armed->struckName.size());
}

Verdict verdictOf(const Strike& strike, Call call) {
    Verdict verdict;
    const bool isFirst = strike.seen == strike.at;
    verdict.killsBefore = strike.fault == Fault::killBefore;
    verdict.killsAfter = strike.fault == Fault::killAfter || strike.fault == Fault::killHalf;
    const bool stopsHalfway = strike.fault == Fault::fromNowOn && isFirst && call == Call::write;
    verdict.isHalf = strike.fault == Fault::half || strike.fault == Fault::killHalf || stopsHalfway;
    if (!verdict.isHalf) verdict.error = strike.error;
    // A handle is closed whatever close() returns.
    verdict.isMade = strike.fault == Fault::doneButFails || call == Call::close;
    return verdict;
}
} // namespace

const char* nameOf(Call call) {
    constexpr std::array<const char*, 14> names = {"open",   "create", "read", "write",  "sync",
                                                   "syncfs", "rename", "link", "unlink", "truncate",
                                                   "mkdir",  "chmod",  "stat", "close"};
    return names.at(static_cast<size_t>(call));
}

void arm(Plan& plan) { armed = &plan; }
void disarm() { armed = nullptr; }

OwnWork::OwnWork() : m_wasOwnWork(isOwnWork) { isOwnWork = true; }
OwnWork::~OwnWork() { isOwnWork = m_wasOwnWork; }
bool OwnWork::isUnderWay() { return isOwnWork; }

void pathOf(const Target& target, char* path, size_t size) {
    const OwnWork work;
    char folder[512] = "";
    if (target.handle >= 0) {
        char link[64];
        std::snprintf(link, sizeof link, "/proc/self/fd/%d", target.handle);
        const ssize_t length = readlink(link, folder, sizeof folder - 1);
        folder[length < 0 ? 0 : length] = '\0';
    }
    const bool isBelow = target.handle >= 0 && target.name != nullptr;
    std::snprintf(path, size, "%s%s%s", folder, isBelow ? "/" : "", target.name ? target.name : "");
}

Verdict verdictOn(Call call, const Target& target) {
    if (!armed || isOwnWork) return {};
    ++armed->made;
    if (call == Call::sync) ++armed->syncs;
    auto& [first, second] = armed->strikes;
    const bool isBehindFirst = first.isStruck();
    const bool isFirstDue = isDue(first, call, true);
    const bool isSecondDue = isDue(second, call, isBehindFirst);
    if (!isFirstDue && !isSecondDue) return {};
    const Strike& strike = isSecondDue ? second : first;
    if (strike.seen == strike.at) remember(call, target);
    if (strike.fault != Fault::meet) return verdictOf(strike, call);
    const OwnWork work;
    armed->meeting(isSecondDue ? 1 : 0);
    return {};
}

void noteRename(const Target& to) {
    if (!armed || isOwnWork) return;
    char path[512];
    pathOf(to, path, sizeof path);
    if (std::strcmp(path, armed->subject.data()) == 0) armed->exchangedAt = armed->made;
}

void die() {
    kill(getpid(), SIGKILL);
    for (;;) pause();
}

} // namespace torvane::faults
