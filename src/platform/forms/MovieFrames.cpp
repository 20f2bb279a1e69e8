// SPDX-License-Identifier: MIT
// Reading and keeping of frames.
#include "MovieFrames.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>

namespace torvane {

namespace {
constexpr qsizetype mostKeptBytes = 8 << 20;
constexpr int shortestTime = 20; // ms: some movies ask for none at all, and would keep a processor busy

// Whether something behind the image is seen through it. Many images have an alpha channel for nothing.
bool isTransparent(const QImage& image) {
    if (!image.hasAlphaChannel()) return false;
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < plain.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(plain.constScanLine(y));
        if (!std::all_of(row, row + plain.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return true;
    }
    return false;
}
} // namespace

MovieFrames::MovieFrames(const QByteArray& bytes, const QByteArray& format)
    : m_format(format), m_bytes(std::make_unique<QBuffer>()) {
    m_bytes->setData(bytes);
    m_bytes->open(QIODevice::ReadOnly);
    rewind();
}

MovieFrames::~MovieFrames() = default;

void MovieFrames::rewind() {
    m_bytes->seek(0);
    m_reader = std::make_unique<QImageReader>(m_bytes.get(), m_format);
    m_reader->setAutoDetectImageFormat(false);
    m_place = 0;
}

MovieFrames::Frame MovieFrames::next() {
    if (m_isComplete) {
        m_place = (m_place + 1) % m_kept.size();
        return m_kept[m_place];
    }
    Frame frame = read();
    if (frame.image.isNull() && m_place > 0) {
        if (!m_isTooLong) {
            m_isComplete = true;
            m_place = 0;
            m_reader.reset();
            m_bytes.reset();
            return m_kept.front();
        }
        rewind();
        frame = read();
    }
    if (!frame.image.isNull()) ++m_place;
    return frame;
}

MovieFrames::Frame MovieFrames::read() {
    Frame frame;
    if (!m_reader->canRead() || !m_reader->read(&frame.image)) return {};
    frame.milliseconds = std::max(m_reader->nextImageDelay(), shortestTime);
    // Three bytes a pixel where they do: they are painted as fast as four.
    frame.image.convertTo(isTransparent(frame.image) ? QImage::Format_ARGB32_Premultiplied
                                                     : QImage::Format_RGB888);
    if (!m_isTooLong) keep(frame);
    return frame;
}

void MovieFrames::keep(const Frame& frame) {
    m_keptBytes += frame.image.sizeInBytes();
    m_isTooLong = m_keptBytes > mostKeptBytes;
    m_isTooLong ? m_kept.clear() : m_kept.push_back(frame);
}

} // namespace torvane
