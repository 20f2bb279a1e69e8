// SPDX-License-Identifier: MIT
// Where the screenshots are: the gallery shows them, and emulators put new ones there.
#pragma once

#include "Globals.h"
#include "SettingValues.h"

namespace torvane {

/// The setting with the spelled path of the folder. The user may have chosen one that is not there.
inline TextSetting screenshotFolder(Settings& settings, const Globals& globals) {
    return {settings, "Capturas", globals.libraryFolder() + QStringLiteral("\\data\\screenshots")};
}

} // namespace torvane
