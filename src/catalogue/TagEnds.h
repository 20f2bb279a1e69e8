// SPDX-License-Identifier: MIT
// What stands at the end of a game once its tag is saved or removed: all that such a change writes.
#pragma once

#include "TagLine.h"
#include "platform/base/EndChanges.h"

namespace torvane::TagEnds {

/// The end with a tag of these fields instead of the present one, if there is one. Empty company, title and
/// information become one blank; the size is the length of the image, whatever the fields say. Fails like
/// TagInFile::keptLength if the present tag is invalid.
EndChanges::End withTag(const Handle& file, TagLine::Fields fields);

/// The end without a tag: the image and a line end. Nothing if there is no tag.
std::optional<EndChanges::End> withoutTag(const Handle& file);

/// Remembers the marker of a tag that has just been written (see TagInFile::rememberMarker).
void remember(const Handle& file, const TailChange& change);

} // namespace torvane::TagEnds
