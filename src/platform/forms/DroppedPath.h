// SPDX-License-Identifier: MIT
// What a file manager hands over when the user drops files on a window.
#pragma once

#include <QString>
#include <optional>

class QMimeData;

namespace torvane {

/// The spelled path of the first thing in a list of addresses (RFC 2483, text/uri-list), if it is a file or
/// folder of this machine that is there; nothing for everything else. Its name may be any bytes.
std::optional<QString> droppedPath(const QMimeData& data);

} // namespace torvane
