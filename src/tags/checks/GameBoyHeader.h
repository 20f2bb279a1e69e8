// SPDX-License-Identifier: MIT
// The header of a cartridge for Game Boy and Game Boy Color, from 0100 to 014F, as Pan Docs describe it ("The
// Cartridge Header"). The console starts a game only if the logo and the checksum of the header are right;
// nothing checks the checksum of the whole image, but a good copy has it right.
#pragma once

#include "Finding.h"
#include "platform/base/SystemCalls.h"

namespace torvane::GameBoyHeader {

/// What is wrong with the header of an image of so many bytes at the beginning of a file. The logo is
/// compared by its SHA-256; of a game for Game Boy Color only, its upper half, as that console does. Code
/// starts with four bytes before the logo, so a jump has to be there: after no or one other instruction of
/// one byte. Fails if the file can't be read.
Findings check(const Handle& file, qint64 image);

} // namespace torvane::GameBoyHeader
