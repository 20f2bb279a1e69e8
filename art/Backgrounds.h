// SPDX-License-Identifier: MIT
// The backgrounds of the windows: which plates, wells and slots lie where. All places come from the
// catalogue.
#pragma once

#include "Catalogue.h"

#include <QDir>
#include <QImage>

namespace torvane {

/// What a background needs to know besides its own layout.
struct Workshop {
    const Catalogue& catalogue;
    QDir drawings; ///< the folder of the SVG sources
    int scale;     ///< device pixels for one logical pixel: 1 or 2
};

/// The main window.
QImage paintMainFrm(const Workshop& shop);
/// The main window's title band alone: the top rows of its background, so that the two meet without a seam.
QImage cutTitleBand(const QImage& mainFrm, int scale);
/// The yes-or-no box.
QImage paintTorvMsg(const Workshop& shop);
/// The start window: the helper figure in the night, asking (`glad` false) or giving thanks (`glad` true).
QImage paintSelLangStartUp(const Workshop& shop, bool glad);
/// The intro window: everything outside of the device has the colour of the top left pixel.
QImage paintSplash(const Workshop& shop);

} // namespace torvane
