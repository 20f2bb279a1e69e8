// SPDX-License-Identifier: MIT
// The list of emulators, "\emuladores\emus.dat". Its first line decides which emulator plays.
#pragma once

#include "core/Globals.h"

namespace torvane {

class EmulatorCatalogue {
public:
    explicit EmulatorCatalogue(const Globals& globals) : m_globals(globals) {}

    /// The path of the emulator's executable, spelled; empty until a line has been read.
    QString EmulatorCommand;

    /// Reads the first line of the list: display name, "#", path below "\emuladores". Without such a
    /// file, line or sign the old emulator stays. Never fails.
    void read();

private:
    const Globals& m_globals;
};

} // namespace torvane
