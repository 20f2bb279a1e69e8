// SPDX-License-Identifier: MIT
// The frames of the movies, and the argument files that make WebP loops of them.
#pragma once

#include "Output.h"

namespace torvane {

/// Draws all frames of the intro (192x122) and the banner (468x60) into frames/, at 1x and at 2x. Writes
/// intro.args, intro@2x.args, banner.args and banner@2x.args for img2webp, which must run in the output
/// folder.
void paintMovies(const Output& output);

} // namespace torvane
