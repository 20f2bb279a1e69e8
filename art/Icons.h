// SPDX-License-Identifier: MIT
// All small pictures: button icons, list icons, window icon, cursors and tray signs, as listed in icons.tsv.
#pragma once

#include "Catalogue.h"
#include "Output.h"

#include <QString>

namespace torvane {

/// Renders every row of `sources`/icons.tsv at 1x and 2x; throws std::runtime_error if a row or a source is
/// invalid.
void paintIcons(const Catalogue& catalogue, const QString& sources, Output& output);

/// Renders the tray signs 0 to 6 into tree/data/tray/, and small ones for the window in which one is chosen.
void paintTray(const QString& sources, Output& output);

} // namespace torvane
