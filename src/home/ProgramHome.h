// SPDX-License-Identifier: MIT
// The home of the program that runs, by its executable and its user.
#pragma once

#include "Home.h"

namespace torvane {

/// The home of the running executable. `given`: the folder that the user has asked for, as bytes; empty for
/// none.
Home homeOfProgram(const QByteArray& given);

} // namespace torvane
