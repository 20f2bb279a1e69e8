// SPDX-License-Identifier: MIT
// The one place where pictures out of files are decoded.
#include "PictureDecoder.h"
#include "../base/RuntimeFailure.h"

#include <QBuffer>
#include <QImageReader>

namespace torvane {

// The reader of JPEG makes no pixels that a smaller size has no use for; the others scale what they have
// made.
QImage decoded(const PictureFile& picture, QSize shown) {
    const QSize size = picture.size().boundedTo(shown);
    QBuffer buffer;
    buffer.setData(picture.bytes());
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, picture.format());
    // Otherwise Qt would ask all of its readers, and take content for what no one here has examined.
    reader.setAutoDetectImageFormat(false);
    if (size != picture.size()) reader.setScaledSize(size);
    const QImage image = reader.read();
    if (size.isEmpty() || image.size() != size) throw RuntimeFailure(RuntimeFailure::invalidPicture);
    return image;
}

QImage decoded(const PictureFile& picture) { return decoded(picture, picture.size()); }

} // namespace torvane
