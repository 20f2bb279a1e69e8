// SPDX-License-Identifier: MIT
// Reading a file from its start to the end of the image.
#include "GameImage.h"

#include <algorithm>

namespace torvane {

namespace {
// Stays in the processor's cache while several sums are made of it, and needs no new memory from the system
// for every game.
constexpr qint64 summedBlock = 64 << 10;
} // namespace

GameImage::GameImage(const QByteArray& path) : m_file(File::ofReal(path)), m_state(infoOf(m_file.handle())) {
    m_end = ImageEnd::in(m_file.handle(), m_state.st_size);
}

Sums GameImage::sums(qint64 length, WantedSums wanted) const {
    const Handle& file = m_file.handle();
    posix_fadvise(file.number(), 0, 0, POSIX_FADV_SEQUENTIAL); // only a hint
    SumMaker maker(wanted);
    QByteArray block(static_cast<qsizetype>(std::min(summedBlock, length)), Qt::Uninitialized);
    for (qint64 done = 0; done < length;) {
        const qint64 got = readInto(file, done, block.data(), std::min<qint64>(block.size(), length - done));
        if (got == 0) failAsChanged();
        maker.add(QByteArrayView(block).first(got));
        done += got;
    }
    if (!isSameState(m_state, infoOf(file))) failAsChanged();
    return maker.finish();
}

} // namespace torvane
