// SPDX-License-Identifier: MIT
// The one place where pictures out of files are decoded.
#include "PictureDecoder.h"
#include "../base/RuntimeFailure.h"

#include <QBuffer>
#include <QImageReader>
#include <functional>

namespace torvane {

namespace {
// The reader of JPEG makes no pixels that a smaller size or a part has no use for; the others scale or cut
// what they have made.
QImage read(const PictureFile& picture, QSize size, const std::function<void(QImageReader&)>& makeSmaller) {
    QBuffer buffer;
    buffer.setData(picture.bytes());
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, picture.format());
    // Otherwise Qt would ask all of its readers, and take content for what no one here has examined.
    reader.setAutoDetectImageFormat(false);
    if (size != picture.size()) makeSmaller(reader);
    const QImage image = reader.read();
    if (size.isEmpty() || image.size() != size) throw RuntimeFailure(RuntimeFailure::invalidPicture);
    return image;
}
} // namespace

QImage decoded(const PictureFile& picture, QSize shown) {
    const QSize size = picture.size().boundedTo(shown);
    return read(picture, size, [size](QImageReader& reader) { reader.setScaledSize(size); });
}

QImage decodedCorner(const PictureFile& picture, QSize room) {
    const QSize size = picture.size().boundedTo(room);
    return read(picture, size, [size](QImageReader& reader) { reader.setClipRect({{0, 0}, size}); });
}

} // namespace torvane
