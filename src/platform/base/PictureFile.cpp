// SPDX-License-Identifier: MIT
// Loading of picture files.
#include "PictureFile.h"
#include "File.h"

namespace torvane {

namespace {
// The gallery has up to three at hand: one shown, one shown enlarged, and one being read. With what a reader
// needs the program stays below 256 MiB. A screen of 4K as a BMP has 24 MiB.
constexpr qint64 largestFile = 28 << 20;
constexpr qint64 signatureLength = 10;

[[noreturn]] void failAsNoPicture() { throw RuntimeFailure(RuntimeFailure::invalidPicture); }
} // namespace

PictureFile::PictureFile(const QByteArray& bytes) : m_bytes(bytes), m_shape(PictureShape::of(bytes)) {
    if (isNull()) failAsNoPicture();
}

PictureFile PictureFile::load(const QString& path) {
    return aboutFile(path, [&] {
        const File file(path);
        if (!PictureShape::mayBe(file.readAt(0, signatureLength))) failAsNoPicture();
        if (file.length() > largestFile) throw RuntimeFailure(RuntimeFailure::outOfMemory);
        return PictureFile(file.readAll());
    });
}

} // namespace torvane
