// SPDX-License-Identifier: MIT
// The setting that says where names of files are cut. Shared by everything that opens a home.
#pragma once

#include "Pieces.h"
#include "SettingValues.h"
#include "platform/base/RuntimeFailure.h"

namespace torvane {

/// The user's choice: "Names = whole" cuts names at the last "." alone. Settings that can't be read leave the
/// cut at every ".".
inline NameCut chosenNameCut(Settings& settings) {
    QString chosen;
    ignoring([&] { chosen = TextSetting(settings, "Names", {}).value(); });
    return NameCut::chosen(chosen);
}

} // namespace torvane
