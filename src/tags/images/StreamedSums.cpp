// SPDX-License-Identifier: MIT
// Keeping the last bytes back.
#include "StreamedSums.h"

namespace torvane {

namespace {
constexpr qsizetype mostKept = 256 << 10; // in bytes
}

void StreamedSums::add(QByteArrayView bytes) {
    m_kept += bytes;
    if (m_kept.size() < mostKept) return;
    const qsizetype sure = m_kept.size() - ImageEnd::tailSize;
    m_maker.add(QByteArrayView(m_kept).first(sure));
    m_summed += sure;
    m_kept.remove(0, sure);
}

Sums StreamedSums::finish(qint64 length) {
    m_maker.add(QByteArrayView(m_kept).first(length - m_summed));
    return m_maker.finish();
}

} // namespace torvane
