// SPDX-License-Identifier: MIT
// Puts a window into the top-most band of the window stack or takes it out. Keeps nothing between calls.
#pragma once

namespace torvane {

class Form;

/// Mind the sense: false puts the window in the top-most band, true takes it out. Works on a shown window
/// without hiding it, and on one that is yet to be shown. Place and size are set anew to where they are.
void SetTopMost(Form& window, bool NotTopMost);

} // namespace torvane
