// SPDX-License-Identifier: MIT
// Comparing fields of the header with the image.
#include "GameBoyHeader.h"
#include "home/ContentSum.h"
#include "platform/base/FileBlocks.h"

#include <algorithm>

namespace torvane::GameBoyHeader {

namespace {
constexpr qint64 start = 0x100, logo = 0x104, title = 0x134, consoles = 0x143, sizeCode = 0x148,
                 headerSum = 0x14D, wholeSum = 0x14E, headerEnd = 0x150;
constexpr qint64 smallest = 32 << 10;
constexpr int largestCode = 8;
constexpr quint8 colourOnly = 0xC0;
constexpr const char* logoSum = "daf4cabdc852baa0291849203f0b41fd0b4ecd58e0d7aff4a509f5de4d7f9a2e";
constexpr const char* upperHalfSum = "bb66a9cb4abb502bbc966828af0f70be5e61cb9eeb5e5ae37f78b0c6660e1b08";

quint8 at(const QByteArray& header, qint64 offset) { return static_cast<quint8>(header[offset]); }

bool jumps(const QByteArray& header) {
    constexpr quint8 jp = 0xC3, jr = 0x18;
    const quint8 first = at(header, start);
    const quint8 second = at(header, start + 1);
    return first == jp || first == jr || second == jp || second == jr;
}

void checkLogo(const QByteArray& header, Findings& findings) {
    const bool isHalf = (at(header, consoles) & colourOnly) == colourOnly;
    const QByteArrayView bytes = QByteArrayView(header).sliced(logo, (title - logo) / (isHalf ? 2 : 1));
    const QByteArray expected = isHalf ? upperHalfSum : logoSum;
    const QByteArray found = ContentSum::of(bytes);
    if (found == expected) return;
    findings.push_back(
        {"logo (SHA-256)", FindingText::place(logo), FindingText::sum(expected), FindingText::sum(found)});
}

void checkHeaderSum(const QByteArray& header, Findings& findings) {
    quint8 sum = 0;
    for (qint64 i = title; i < headerSum; ++i) sum = static_cast<quint8>(sum - at(header, i) - 1);
    if (sum == at(header, headerSum)) return;
    findings.push_back({"checksum of the header", FindingText::place(headerSum), FindingText::number(sum, 1),
                        FindingText::number(at(header, headerSum), 1)});
}

void checkSize(const QByteArray& header, qint64 image, Findings& findings) {
    const quint8 code = at(header, sizeCode);
    const Field place = FindingText::place(sizeCode);
    if (code > largestCode) {
        findings.push_back({"size in the header", place, {}, FindingText::number(code, 1)});
    } else if (smallest << code != image) {
        findings.push_back(
            {"size in the header", place, Field::ofNumber(image), Field::ofNumber(smallest << code)});
    }
}

void checkWholeSum(const Handle& file, const QByteArray& header, qint64 image, Findings& findings) {
    quint32 sum = 0; // of some 16 million bytes and more: only the low 16 bits count
    FileBlocks blocks(file, 0, image);
    for (QByteArrayView block = blocks.next(); !block.isEmpty(); block = blocks.next()) {
        for (const char byte : block) sum += static_cast<quint8>(byte);
    }
    sum = (sum - at(header, wholeSum) - at(header, wholeSum + 1)) & 0xFFFFU;
    const quint32 stored = at(header, wholeSum) * 0x100U + at(header, wholeSum + 1);
    if (sum == stored) return;
    findings.push_back({"checksum of the image", FindingText::place(wholeSum), FindingText::number(sum, 2),
                        FindingText::number(stored, 2)});
}
} // namespace

Findings check(const Handle& file, qint64 image) {
    const QByteArray header = bytesOf(file, 0, std::min(image, headerEnd));
    if (header.size() < headerEnd) {
        return {{"no whole header", {}, Field::ofNumber(headerEnd), Field::ofNumber(header.size())}};
    }
    Findings findings;
    if (!jumps(header)) {
        findings.push_back(
            {"start", FindingText::place(start), {}, FindingText::bytes(header.sliced(start, logo - start))});
    }
    checkLogo(header, findings);
    checkHeaderSum(header, findings);
    checkSize(header, image, findings);
    checkWholeSum(file, header, image, findings);
    return findings;
}

} // namespace torvane::GameBoyHeader
