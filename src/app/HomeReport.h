// SPDX-License-Identifier: MIT
// The home of this program, and what the user hears about it.
#pragma once

#include "home/Home.h"

namespace torvane {

class Program;

/// The home of the running executable. `given`: the folder that the user has asked for, as bytes; empty for
/// none.
Home homeOfProgram(const QByteArray& given);

/// Reports in one box, before the first window, if the home is for looking only or could not be brought up to
/// date, and if the settings can't be stored: these are then kept until the end of the program. So are
/// settings that can't be stored later, if the home is for looking only or the disk was too full to bring it
/// up to date.
void reportHome(Program& program, const OpenedHome& home);

} // namespace torvane
