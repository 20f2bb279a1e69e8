// SPDX-License-Identifier: MIT
// What the user hears about the home of the program.
#pragma once

#include "home/Home.h"

namespace torvane {

class Program;

/// Reports in one box, before the first window, if the home is for looking only or could not be brought up to
/// date, and if the settings can't be stored: these are then kept until the end of the program. So are
/// settings that can't be stored later, if the home is for looking only or the disk was too full to bring it
/// up to date. Of a home that is closed, that is all that there is to report.
void reportHome(Program& program, const OpenedHome& home);

} // namespace torvane
