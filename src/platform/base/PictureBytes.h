// SPDX-License-Identifier: MIT
// Reads the bytes of a picture file from front to back, or at a place, and never beyond their end.
#pragma once

#include <QByteArrayView>
#include <algorithm>

namespace torvane {

class PictureBytes {
public:
    explicit PictureBytes(QByteArrayView bytes) : m_bytes(bytes) {}

    /// Whether something was asked for that is not there. All answers are 0 from then on.
    bool isCut() const { return m_isCut; }
    qsizetype place() const { return m_at; }
    void skip(qsizetype count) {
        m_isCut = m_isCut || count < 0 || count > m_bytes.size() - m_at;
        m_at = m_isCut ? m_bytes.size() : m_at + count;
    }
    int byte() {
        const qsizetype at = m_at;
        skip(1);
        return m_isCut ? 0 : static_cast<uchar>(m_bytes[at]);
    }
    /// Two bytes, the low one first.
    int lowFirst() {
        const int low = byte();
        return low + 256 * byte();
    }
    /// Two bytes, the high one first.
    int highFirst() {
        const int high = byte();
        return 256 * high + byte();
    }
    /// Four bytes, the lowest first, as a signed number.
    qint32 signedLowFirst() {
        const auto low = static_cast<quint32>(lowFirst());
        return static_cast<qint32>(low + (static_cast<quint32>(lowFirst()) << 16));
    }
    /// Goes to the next byte of a value; to the end if there is none.
    void find(char value) {
        const auto next = std::find(m_bytes.begin() + m_at, m_bytes.end(), value);
        m_at = next - m_bytes.begin();
    }

private:
    QByteArrayView m_bytes;
    qsizetype m_at = 0;
    bool m_isCut = false;
};

} // namespace torvane
