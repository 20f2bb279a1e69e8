// SPDX-License-Identifier: MIT
// The checksums of an image that comes as a stream: where it ends, the last bytes decide. So these are kept
// back, and summed up once they are known.
#pragma once

#include "SumMaker.h"
#include "catalogue/ImageEnd.h"

namespace torvane {

class StreamedSums {
public:
    explicit StreamedSums(WantedSums wanted) : m_maker(wanted) {}

    void add(QByteArrayView bytes);
    /// Where the image ends in the bytes that have come, which are all.
    ImageEnd end() const {
        return ImageEnd::of(QByteArrayView(m_kept).last(tail()), m_summed + m_kept.size());
    }
    /// Whether an image of so many bytes can still be summed up: a tag may name a Size far below what comes
    /// before it.
    bool canEndAt(qint64 length) const { return length >= m_summed; }
    /// The checksums of the first bytes, as many as an end has that is still possible.
    Sums finish(qint64 length);

private:
    qsizetype tail() const { return std::min<qsizetype>(m_kept.size(), ImageEnd::tailSize); }

    SumMaker m_maker;
    qint64 m_summed = 0;
    QByteArray m_kept;
};

} // namespace torvane
