// SPDX-License-Identifier: MIT
// What the name of a file says of the picture in it. What the file really holds does not count here.
#pragma once

#include "core/Pieces.h"

namespace torvane {

/// The kinds that the gallery knows, by the numbers of their icons in its image list.
enum class PictureKind : quint8 { other = 0, jpg = 1, bmp = 2, gif = 3, png = 4 };

/// The kind of a file name: that of its second piece, whatever its letters' case. "scan.001.jpg" is of no
/// known kind if names are cut at every ".".
PictureKind pictureKindOf(const QString& fileName, const NameCut& cut);
/// The name of a kind's format, the same in every language; empty for other kinds.
QString formatName(PictureKind kind);

} // namespace torvane
