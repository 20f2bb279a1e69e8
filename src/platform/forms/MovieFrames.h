// SPDX-License-Identifier: MIT
// The frames of a moving picture, one after the other and for ever. A short movie is decoded once and kept, a
// long one is decoded anew each time.
#pragma once

#include <QByteArray>
#include <QImage>
#include <memory>
#include <vector>

class QBuffer;
class QImageReader;

namespace torvane {

class MovieFrames {
public:
    /// The bytes of a GIF or WebP, and its format as Pictures::formatOf has it.
    MovieFrames(const QByteArray& bytes, const QByteArray& format);
    ~MovieFrames();

    struct Frame {
        QImage image;
        int milliseconds = 0; ///< that it is to be shown
    };
    /// The next frame; the first one again after the last one that can be read. A null image if there is none
    /// at all.
    Frame next();
    /// Whether there is one frame only. Not known before that one has come for the second time.
    bool isStill() const { return m_isComplete && m_kept.size() == 1; }

private:
    Frame read();
    void keep(const Frame& frame);
    void rewind();

    QByteArray m_format;
    std::unique_ptr<QBuffer> m_bytes;
    std::unique_ptr<QImageReader> m_reader;
    std::vector<Frame> m_kept;
    qsizetype m_keptBytes = 0;
    std::size_t m_place = 0; // in the round
    bool m_isTooLong = false;
    bool m_isComplete = false; // all frames are kept
};

} // namespace torvane
