// SPDX-License-Identifier: MIT
// The pages that the program opens in the browser, all of them: no window spells an address itself. For each,
// the folder data/site of the tree has an HTML file; see Hosts for its name.
#pragma once

#include "Hosts.h"

#include <array>

namespace torvane::Pages {

/// Where a user adds a description to the tag database.
inline constexpr Hosts::Page publish{Hosts::Host::update,
                                     QLatin1String("/modules.php?name=online_db&file=input_db")};
/// Frequent questions.
inline constexpr Hosts::Page questions{Hosts::Host::web, QLatin1String("/modules.php?name=FAQ")};
/// Where a user reports a bug.
inline constexpr Hosts::Page bugReport{Hosts::Host::update, QLatin1String("/torvane.php?section=bugcenter")};
/// The newest version of the program.
inline constexpr Hosts::Page newVersion{Hosts::Host::update, QLatin1String("/index.php?section=torvane")};
/// More languages.
inline constexpr Hosts::Page languages{Hosts::Host::update, QLatin1String("/index.php?section=tv_langfiles")};
/// The search for games, without anything to search for yet.
inline constexpr Hosts::Page searchStart{Hosts::Host::search, QLatin1String("/modules.php?name=Edonkey")};
/// What a search has found; what to search for follows.
inline constexpr Hosts::Page searchResults{Hosts::Host::search,
                                           QLatin1String("/modules.php?name=Edonkey&d_op=search&query=")};

inline constexpr std::array all{publish,   questions,   bugReport,    newVersion,
                                languages, searchStart, searchResults};

} // namespace torvane::Pages
