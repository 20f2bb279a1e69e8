// SPDX-License-Identifier: MIT
// Makes the rendered pictures available to Qt under ":/art". The painter makes them at build time.
#pragma once

namespace torvane {

/// Registers the pictures as ":/art/<file name>"; call it once, before the first picture is loaded.
void initArtResources();

} // namespace torvane
