// SPDX-License-Identifier: MIT
// How long the image of a game is, without the line ends that saves have put after it.
#pragma once

#include "platform/base/SystemCalls.h"

namespace torvane {

/// The length of an image from the bytes before its tag, `body`, in a file. Every save of a tag but the first
/// and every removal of one leaves a line end after the image. They are left out only if what precedes them
/// has the size of a chip, a power of two: otherwise they may belong to the image. Fails if the file can't be
/// read.
qint64 imageLength(const Handle& file, qint64 body);

/// Whether a number is a power of two.
constexpr bool isPowerOfTwo(qint64 number) { return number > 0 && (number & (number - 1)) == 0; }

} // namespace torvane
