// SPDX-License-Identifier: MIT
// From the bytes of a picture to its pixels, by Qt's readers.
#pragma once

#include "../base/PictureFile.h"

#include <QImage>

namespace torvane {

/// The pixels of a picture in its own size, or in the size at which it is shown if that is smaller, direction
/// by direction; both in pixels. A GIF gives its first frame. Fails with invalidPicture if the reader can't
/// make them, or if there is no picture.
QImage decoded(const PictureFile& picture, QSize shown);
/// The same in its own size: of a picture that is larger than some room the top left part that fits.
QImage decodedCorner(const PictureFile& picture, QSize room);

} // namespace torvane
