// SPDX-License-Identifier: MIT
// Comparing fields of the header.
#include "AdvanceHeader.h"
#include "home/ContentSum.h"

#include <algorithm>

namespace torvane::AdvanceHeader {

namespace {
constexpr qint64 entryOpcode = 0x03, picture = 0x04, gameTitle = 0xA0, fixedByte = 0xB2, complement = 0xBD,
                 end = 0xC0;
constexpr quint8 branch = 0xEA;
constexpr quint8 fixedValue = 0x96;
constexpr const char* pictureSum = "08a0153cfd6b0ea54b938f7d209933fa849da0d56f5a34c481060c9ff2fad818";

quint8 at(const QByteArray& header, qint64 offset) { return static_cast<quint8>(header[offset]); }

struct Byte {
    const char* what;
    qint64 offset;
    quint8 expected;
};

void checkByte(const QByteArray& header, const Byte& byte, Findings& findings) {
    const quint8 found = at(header, byte.offset);
    if (found == byte.expected) return;
    findings.push_back({byte.what, FindingText::place(byte.offset), FindingText::number(byte.expected, 1),
                        FindingText::number(found, 1)});
}

// Two bits enable a debugger, and two are the high ones of a key number; a game without either has the bits
// of the logo there.
QByteArray pictureOf(const QByteArray& header) {
    constexpr qint64 debugging = 0x9C, keyNumber = 0x9E;
    constexpr quint8 debuggingBits = 0x84, keyBits = 0x03;
    QByteArray bytes = header.sliced(picture, gameTitle - picture);
    bytes[debugging - picture] = static_cast<char>(at(header, debugging) & ~debuggingBits);
    bytes[keyNumber - picture] = static_cast<char>(at(header, keyNumber) & ~keyBits);
    return bytes;
}

quint8 complementOf(const QByteArray& header) {
    constexpr quint8 constant = 0x19;
    quint8 sum = 0;
    for (qint64 i = gameTitle; i < complement; ++i) sum = static_cast<quint8>(sum - at(header, i));
    return static_cast<quint8>(sum - constant);
}
} // namespace

Findings check(const Handle& file, qint64 image) {
    const QByteArray header = bytesOf(file, 0, std::min(image, end));
    if (header.size() < end) {
        return {{"no whole header", {}, Field::ofNumber(end), Field::ofNumber(header.size())}};
    }
    Findings findings;
    checkByte(header, {"start", entryOpcode, branch}, findings);
    const QByteArray found = ContentSum::of(pictureOf(header));
    if (found != pictureSum) {
        findings.push_back({"logo (SHA-256)", FindingText::place(picture), FindingText::sum(pictureSum),
                            FindingText::sum(found)});
    }
    checkByte(header, {"fixed byte", fixedByte, fixedValue}, findings);
    checkByte(header, {"checksum of the header", complement, complementOf(header)}, findings);
    return findings;
}

} // namespace torvane::AdvanceHeader
