// SPDX-License-Identifier: MIT
// How a replaced call passes through to the C library's own: counted, perhaps struck, perhaps recorded.
#pragma once

#include "FaultyCalls.h"

#include <cerrno>
#include <cstddef>
#include <dlfcn.h>

namespace torvane::faults {

/// The object of a call: an open file or folder, and a name in it or a path.
struct Target {
    int handle = -1;
    const char* name = nullptr;
};
/// The real path of a target, truncated to the size.
void pathOf(const Target& target, char* path, size_t size);

/// The decision on a call.
struct Verdict {
    bool killsBefore = false;
    bool killsAfter = false;
    bool isHalf = false;
    bool isMade = false; ///< the call is made although it reports failure
    int error = 0;       ///< 0 for success
};
/// Counts a call and decides on it.
Verdict verdictOn(Call call, const Target& target);
/// Notes that a rename has given a name to a file.
void noteRename(const Target& to);
[[noreturn]] void die();

/// While this object lives, calls belong to the library itself and are neither counted nor recorded.
class OwnWork {
public:
    OwnWork();
    ~OwnWork();
    OwnWork(const OwnWork&) = delete;
    OwnWork& operator=(const OwnWork&) = delete;
    static bool isUnderWay();

private:
    bool m_wasOwnWork;
};

/// The C library's function of this name.
template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Makes a call as decided. `make` receives whether to do only half, and returns the call's result.
template <typename Make>
auto through(Call call, const Target& target, Make make) -> decltype(make(false)) {
    const Verdict verdict = verdictOn(call, target);
    if (verdict.killsBefore) die();
    if (verdict.error != 0 && !verdict.isMade) {
        errno = verdict.error;
        return -1;
    }
    const auto result = make(verdict.isHalf);
    if (verdict.killsAfter) die();
    if (result < 0 || verdict.error == 0) return result;
    errno = verdict.error;
    return -1;
}

} // namespace torvane::faults
