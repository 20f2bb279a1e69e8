// SPDX-License-Identifier: MIT
// How a replaced call goes through to the C library's own one: counted, perhaps struck, perhaps recorded.
#pragma once

#include "FaultyCalls.h"

#include <cerrno>
#include <cstddef>
#include <dlfcn.h>

namespace torvane::faults {

/// What a call is about: an open file or folder, and a name in it or a path.
struct Target {
    int handle = -1;
    const char* name = nullptr;
};
/// The real path of a target, cut to the size.
void pathOf(const Target& target, char* path, size_t size);

/// What is to happen to a call.
struct Verdict {
    bool killsBefore = false;
    bool killsAfter = false;
    bool isHalf = false;
    bool isMade = false; ///< the call is made although it fails
    int error = 0;       ///< 0 if it does not fail
};
/// Counts a call and decides on it.
Verdict verdictOn(Call call, const Target& target);
/// A name was given to a file, by a rename.
void noteRename(const Target& to);
[[noreturn]] void die();

/// While it lives calls are the library's own, and neither counted nor recorded.
class OwnWork {
public:
    OwnWork();
    ~OwnWork();
    OwnWork(const OwnWork&) = delete;
    OwnWork& operator=(const OwnWork&) = delete;
    static bool isUnderWay();

private:
    bool m_former;
};

/// The C library's own function of a name.
template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Makes a call as decided. `make` gets whether half is to be done, and gives the call's result.
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
