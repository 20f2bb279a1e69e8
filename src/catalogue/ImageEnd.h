// SPDX-License-Identifier: MIT
// Where the image in a game's file ends: before its tag, and before the line ends that saves have added.
// Lists of known games have the checksums of images as they were before anybody tagged them.
#pragma once

#include "platform/base/SystemCalls.h"

#include <QByteArrayView>

namespace torvane {

/// Each save or removal of a tag leaves one more line end after the image, so the first tag of a game has its
/// length, and later ones do not. What was added shows by the lengths of cartridges: these are whole KiB. If
/// the bytes beyond the last whole KiB are line ends and nothing else, they are not counted. An image of
/// whole KiB thus always keeps its last bytes, whatever they are, and so does one of any other length that
/// does not end in line ends.
struct ImageEnd {
    qint64 body = 0;  ///< bytes before the tag; of the whole file if it has none
    int lineEnds = 0; ///< with how many line ends these end, up to 511

    /// The length of the image in bytes, by the rule above.
    qint64 length() const;
    /// Whether an image of so many bytes may have become this body by saves.
    bool mayBe(qint64 image) const;

    /// How many bytes of the end of a file are to be known: those of a tag of 16 KiB, and line ends.
    static constexpr qint64 tailSize = 17 << 10;
    /// The end of the image in a file of `length` bytes that ends with `tail`: `tailSize` bytes, or all if
    /// there are fewer. The tag is the first one in the tail that can be understood.
    static ImageEnd of(QByteArrayView tail, qint64 length);
    /// The end of the image in an open file of so many bytes. Fails if it can't be read, or is shorter by
    /// now.
    static ImageEnd in(const Handle& file, qint64 length);
};

} // namespace torvane
