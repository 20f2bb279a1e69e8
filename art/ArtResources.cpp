// SPDX-License-Identifier: MIT
// The registration of a resource that lives in a static library: without it the linker leaves the pictures
// out.
#include "ArtResources.h"

#include <QtCore/QDir>
#include <QtCore/qglobal.h>

// Q_INIT_RESOURCE declares a function and has to stand outside of every namespace.
static void registerPictures() { Q_INIT_RESOURCE(torvane_art); }

namespace torvane {

void initArtResources() { registerPictures(); }

} // namespace torvane
