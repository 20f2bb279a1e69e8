// SPDX-License-Identifier: MIT
// Which files commands write a tag to.
#pragma once

#include "core/Pieces.h"

#include <QByteArray>

namespace torvane {

/// Why a file of this name gets no tag, without a line end; empty if it may get one. Archives get none, be
/// they archives for the list (`cut`) or by their content, nor do files that no list of games shows.
QByteArray faultOfWriting(const QByteArray& name, const NameCut& cut);

} // namespace torvane
