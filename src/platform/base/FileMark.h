// SPDX-License-Identifier: MIT
// A number that is remembered of a file's content, in an extended attribute (see xattr(7)), as long as
// nothing is written to the file. It saves reading the file once more, and may be lost at any time.
#pragma once

#include "SystemCalls.h"

#include <optional>

namespace torvane::FileMark {

/// The number that was remembered under a name; nothing if there is none, or if the file's length or
/// modification time has changed since.
std::optional<qint64> read(const Handle& file, const char* name);

/// Remembers a number of the present content. File systems without such attributes remember nothing. Never
/// fails.
void write(const Handle& file, const char* name, qint64 number);

} // namespace torvane::FileMark
