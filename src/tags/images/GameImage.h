// SPDX-License-Identifier: MIT
// The image in a game's file, without the tag: its length, and its checksums.
#pragma once

#include "SumMaker.h"
#include "catalogue/ImageEnd.h"
#include "platform/base/File.h"

namespace torvane {

class GameImage {
public:
    /// Opens the file at a real path. Fails if it can't be read.
    explicit GameImage(const QByteArray& path);

    const ImageEnd& end() const { return m_end; }
    /// The checksums of so many bytes from the start of the file. Fails if they can't be read, and if the
    /// file has changed since it was opened.
    Sums sums(qint64 length, WantedSums wanted) const;

private:
    File m_file;
    struct stat m_state;
    ImageEnd m_end;
};

} // namespace torvane
