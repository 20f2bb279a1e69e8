// SPDX-License-Identifier: MIT
// The picture that the gallery hands to the window that enlarges it. Owned by the program: a picture is no
// text, which is all that the desk carries from window to window.
#pragma once

#include "platform/base/PictureFile.h"

namespace torvane {

struct ShownPicture {
    PictureFile picture; ///< taken out again by the window that shows it
};

} // namespace torvane
