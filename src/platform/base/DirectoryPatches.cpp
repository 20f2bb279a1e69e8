// SPDX-License-Identifier: MIT
// Walking through archive directories (PKWARE's APPNOTE.TXT, 4.3.12 and 4.4.4).
#include "DirectoryPatches.h"
#include "ArchiveEnds.h"

#include <QtEndian>
#include <algorithm>
#include <limits>
#include <set>

namespace torvane {

namespace {
constexpr qint64 directoryBlock = 1 << 16;

constexpr char entrySign[] = "PK\1\2";
constexpr qsizetype flagsOffset = 8;
constexpr qsizetype lengthsOffset = 28; // of name, extra fields and comment
constexpr qsizetype headSize = 46;
constexpr char utf8Flag = 0x08; // in the second byte of the flags

bool isText(QByteArrayView bytes) {
    const auto isControl = [](char c) { return static_cast<uchar>(c) < 0x20; };
    return bytes.isValidUtf8() && std::none_of(bytes.begin(), bytes.end(), isControl);
}

class Walk {
public:
    Walk(const File& file, qint64 mostEntries, Pulse& pulse)
        : m_file(file), m_entriesLeft(mostEntries), m_pulse(pulse) {}

    void through(quint64 directory) {
        if (directory > static_cast<quint64>(m_file.length()) || !m_walked.insert(directory).second) return;
        auto place = static_cast<qint64>(directory);
        for (qint64 size = 1; size > 0 && m_entriesLeft > 0 && m_pulse.shouldContinue(); --m_entriesLeft) {
            size = patchEntry(place);
            place += size;
        }
    }
    DirectoryPatches takePatches() { return std::move(m_patches); }

private:
    // Checks the entry at an offset; gives its size in the directory, or 0 if there is none.
    qint64 patchEntry(qint64 place) {
        const QByteArrayView head = bytesAt(place, headSize);
        if (head.size() < headSize || !head.startsWith(entrySign)) return 0;
        const auto lengthAt = [&](qsizetype i) {
            return qFromLittleEndian<quint16>(head.data() + lengthsOffset + 2 * i);
        };
        const qint64 nameSize = lengthAt(0);
        const qint64 extraSize = lengthAt(1);
        const qint64 size = headSize + nameSize + extraSize + lengthAt(2);
        const char flags = head[flagsOffset + 1];
        if ((flags & utf8Flag) == 0) return size;
        const QByteArrayView texts = bytesAt(place + headSize, size - headSize);
        if (texts.size() < size - headSize) return 0;
        const bool isNameText = isText(texts.first(nameSize));
        if (isNameText && isText(texts.sliced(nameSize + extraSize))) return size;
        m_patches[place + flagsOffset + 1] = static_cast<char>(flags & ~utf8Flag);
        if (!isNameText) m_patches[place + headSize] = '/';
        return size;
    }

    // At most `count` bytes; valid until the next call.
    QByteArrayView bytesAt(qint64 place, qint64 count) {
        if (place < m_blockStart || place + count > m_blockStart + m_block.size()) {
            m_block = m_file.readAt(place, std::max(directoryBlock, count));
            m_blockStart = place;
        }
        const QByteArrayView rest = QByteArrayView(m_block).sliced(place - m_blockStart);
        return rest.first(std::min(count, rest.size()));
    }

    const File& m_file;
    qint64 m_entriesLeft;
    Pulse& m_pulse;
    QByteArray m_block;
    qint64 m_blockStart = 0;
    std::set<quint64> m_walked;
    DirectoryPatches m_patches;
};
} // namespace

DirectoryPatches directoryPatches(const File& file, qint64 mostEntries, Pulse& pulse) {
    Walk walk(file, mostEntries, pulse);
    for (const ArchiveEnd& end : archiveEnds(file)) walk.through(end.directory);
    return walk.takePatches();
}

} // namespace torvane
