// SPDX-License-Identifier: MIT
// The header of a cartridge for Game Boy Advance, its first 192 bytes, as GBATEK describes it ("GBA Cartridge
// Header"). The console checks the logo, the fixed byte and the checksum.
#pragma once

#include "Finding.h"
#include "platform/base/SystemCalls.h"

namespace torvane::AdvanceHeader {

/// What is wrong with the header of an image of so many bytes at the beginning of a file. The logo is
/// compared by its SHA-256, without the four bits in it that have other meanings. The first word has to be a
/// branch without a condition. Fails if the file can't be read.
Findings check(const Handle& file, qint64 image);

} // namespace torvane::AdvanceHeader
