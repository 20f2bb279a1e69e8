// SPDX-License-Identifier: MIT
// What the bytes of a picture file say of the picture, found without decoding it. Readers of pictures draw
// what they got of a file that is cut, and trust the size that it claims: both are looked at here first.
#pragma once

#include <QByteArrayView>
#include <QSize>

namespace torvane {

struct PictureShape {
    const char* format =
        nullptr; ///< the name of Qt's reader: "jpg", "gif" or "bmp"; null for no such picture
    QSize size;  ///< in pixels; that of the first frame's canvas for a GIF

    /// Examines all bytes of a file. They are no such picture if they begin otherwise, if the picture, or the
    /// first frame of a GIF, is cut off, or if it would take more room or time than anyone would wait for.
    static PictureShape of(QByteArrayView bytes);
    /// Whether a file that begins with these bytes may be such a picture; ten of them are enough.
    static bool mayBe(QByteArrayView beginning);

    bool isPicture() const { return format != nullptr; }
    bool operator==(const PictureShape& other) const = default;

    /// The most pixels that a picture may have: decoded they take 80 MB, and a reader may need as much again.
    /// Two screens of 4K have fewer.
    static constexpr qint64 mostPixels = 20'000'000;
};

/// The sizes of whole pictures of one format each; invalid for anything else. The bytes begin as the format
/// demands.
QSize jpegSize(QByteArrayView bytes);
QSize gifSize(QByteArrayView bytes);
QSize bmpSize(QByteArrayView bytes);

} // namespace torvane
