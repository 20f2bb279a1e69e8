// SPDX-License-Identifier: MIT
// The formats by their first bytes, and the limit for all of them.
#include "PictureShape.h"

#include <array>

namespace torvane {

namespace {
struct Format {
    const char* beginning;
    const char* reader;
    QSize (*size)(QByteArrayView bytes);
};
constexpr std::array formats = {Format{"\xFF\xD8\xFF", "jpg", jpegSize}, Format{"GIF87a", "gif", gifSize},
                                Format{"GIF89a", "gif", gifSize}, Format{"BM", "bmp", bmpSize}};

const Format* formatOf(QByteArrayView bytes) {
    for (const Format& format : formats) {
        if (bytes.startsWith(format.beginning)) return &format;
    }
    return nullptr;
}
} // namespace

bool PictureShape::mayBe(QByteArrayView beginning) { return formatOf(beginning) != nullptr; }

PictureShape PictureShape::of(QByteArrayView bytes) {
    const Format* format = formatOf(bytes);
    if (format == nullptr) return {};
    const QSize size = format->size(bytes);
    if (size.isEmpty() || qint64{size.width()} * size.height() > mostPixels) return {};
    return {format->reader, size};
}

} // namespace torvane
