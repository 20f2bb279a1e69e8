// SPDX-License-Identifier: MIT
// Which files commands write a tag to.
#pragma once

#include <QByteArray>

namespace torvane {

/// Why a file of this name gets no tag, without a line end; empty if it may get one. Archives get none, nor
/// do files that no list of games shows.
QByteArray faultOfWriting(const QByteArray& name);

} // namespace torvane
