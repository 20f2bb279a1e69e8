// SPDX-License-Identifier: MIT
// The frames of the moving pictures and the argument files that make WebP loops of them.
#pragma once

#include "Output.h"

namespace torvane {

/// Draws all frames of the intro (192x122) and the banner (468x60) into frames/ and writes intro.args and
/// banner.args for img2webp, which is to run in the output folder.
void paintMovies(const Output& output);

} // namespace torvane
