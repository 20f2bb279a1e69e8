// SPDX-License-Identifier: MIT
// The user's folders after the XDG base directory rules, as real paths. A variable that is empty or relative
// counts as unset. They need not exist, and they end without a separator.
#pragma once

#include <QByteArray>

namespace torvane::UserFolders {

/// $HOME, or else the user's entry in the system's list of users; empty if there is none.
QByteArray home();
/// $XDG_DATA_HOME, or else `.local/share` in the home; empty if there is no home either.
QByteArray data();
/// $XDG_CONFIG_HOME, or else `.config` in the home; empty if there is no home either.
QByteArray configuration();

} // namespace torvane::UserFolders
