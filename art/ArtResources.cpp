// SPDX-License-Identifier: MIT
// Registers a resource that is in a static library: otherwise the linker drops the pictures.
#include "ArtResources.h"

#include <QtCore/QDir>
#include <QtCore/qglobal.h>

// Q_INIT_RESOURCE declares a function and must be outside every namespace.
static void registerPictures() { Q_INIT_RESOURCE(torvane_art); }

namespace torvane {

void initArtResources() { registerPictures(); }

} // namespace torvane
