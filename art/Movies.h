// SPDX-License-Identifier: MIT
// The frames of the movies, and the argument files that make WebP loops of them.
#pragma once

#include "Output.h"

namespace torvane {

class Credits;

/// Draws all frames of the intro (192x122), the banner (468x60) and the credits (431x333) into frames/, at 1x
/// and at 2x. Writes NAME.args and NAME@2x.args of each for img2webp, which must run in the output folder.
void paintMovies(const Output& output, const Credits& credits);

} // namespace torvane
