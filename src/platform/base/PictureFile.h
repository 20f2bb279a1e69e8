// SPDX-License-Identifier: MIT
// A picture as its file has it, whole and of a known size, but not decoded: that is done where it is shown.
// Copies share the bytes, so that one stays what it is when the file changes.
#pragma once

#include "PictureShape.h"

#include <QByteArray>
#include <QString>

namespace torvane {

class PictureFile {
public:
    /// No picture.
    PictureFile() = default;
    /// The picture in these bytes: JPEG, GIF or BMP. Fails with invalidPicture for anything else, a PNG
    /// included, for what is cut off, and for what is too large (see PictureShape).
    explicit PictureFile(const QByteArray& bytes);
    /// The picture of the file at a spelled path, judged by its content. Fails like the constructor, with
    /// outOfMemory above 28 MiB, and with the numbers of File. Of what is no picture only the beginning is
    /// read.
    static PictureFile load(const QString& path);

    bool isNull() const { return !m_shape.isPicture(); }
    const QByteArray& bytes() const { return m_bytes; }
    /// The name of Qt's reader; null without a picture.
    const char* format() const { return m_shape.format; }
    /// In pixels; 0 by 0 without a picture.
    QSize size() const { return isNull() ? QSize(0, 0) : m_shape.size; }

private:
    QByteArray m_bytes;
    PictureShape m_shape;
};

} // namespace torvane
