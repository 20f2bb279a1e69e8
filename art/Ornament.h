// SPDX-License-Identifier: MIT
// Ornaments that several windows share in their free parts.
#pragma once

#include "Panel.h"

namespace torvane {

/// Short grooves one above the other in the row of `buttons`, from the left edge of the window up to the
/// buttons.
void grille(Panel& panel, const QRectF& buttons);

} // namespace torvane
