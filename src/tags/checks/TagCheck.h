// SPDX-License-Identifier: MIT
// Whether the tag of a game is as a save writes it, and as every reader finds it.
#pragma once

#include "Finding.h"
#include "platform/base/SystemCalls.h"

namespace torvane::TagCheck {

/// Looks at a whole file of so many bytes. The tag is the first one that a selection sees or, if it sees
/// none, the first of the file. Fails if the file can't be read.
Findings of(const Handle& file, qint64 length);

/// What is wrong with the bytes after the marker at an offset.
Findings ofTagPart(QByteArrayView part, qint64 marker);

} // namespace torvane::TagCheck
