// SPDX-License-Identifier: MIT
// The start of the program after this one, in the same process.
#pragma once

#include "StartCall.h"

namespace torvane {

struct NextStart {
    QByteArray program; ///< the executable: an absolute real path
    QByteArray folder;  ///< the program's folder as the user has given it; empty if he has not

    /// The running executable. To be asked for early: an upgrade may replace it later.
    static NextStart ofThisProgram(const QByteArray& folder);

    /// Replaces this process by the program, which answers the call. Returns only if that fails, which it
    /// reports on standard error; all files but the three standard ones are closed then.
    void begin(const StartCall& call) const;
};

} // namespace torvane
