// SPDX-License-Identifier: MIT
// What a selection of a game sees of its file: a window of 1024 bytes at the end, and the tag in it.
#pragma once

#include "TagLine.h"
#include "platform/base/SystemCalls.h"

#include <optional>

namespace torvane::TagWindow {

/// In bytes: selecting a game reads only the end of its file, which may be many megabytes. The window ends
/// one byte before the end of the file, so that it never holds the last byte of the line end.
constexpr qint64 size = 1024;

struct Tag {
    TagLine::Fields fields;
    qint32 sizeKB = 0;    ///< the Size piece in units of 1000 bytes, half to even
    qint64 imageSize = 0; ///< how many bytes of the image remain when the tag is removed
};

/// Whether a file of so many bytes is too short to have a window.
bool isTooShort(qint64 length);
/// The bytes of the window; the file must not be too short for one.
QByteArray bytes(const Handle& file, qint64 length);
/// The tag of a file of so many bytes; nothing if a selection shows it as untagged. Fails if the file can't
/// be read.
std::optional<Tag> tag(const Handle& file, qint64 length);

} // namespace torvane::TagWindow
