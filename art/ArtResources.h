// SPDX-License-Identifier: MIT
// Makes the rendered pictures known to Qt under ":/art". The pictures themselves are made by the painter at
// build time.
#pragma once

namespace torvane {

/// Registers the pictures as ":/art/<file name>"; call it once, before the first picture is loaded.
void initArtResources();

} // namespace torvane
