// SPDX-License-Identifier: MIT
// Checking values, and completing entries.
#include "ListEntry.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr std::array<const char*, sumKinds> listNames = {"crc", "md5", "sha1", "sha256"};
constexpr qsizetype longestName = 4096; // in bytes
constexpr char noValue[] = "-";         // as some programs write what they do not know
constexpr size_t mostRoms = 1000;       // of a game, before they are handed over with what is known by then

bool isHex(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

// Empty if these are no digits of a checksum. Some programs drop the zeros before a CRC.
QByteArray sumOf(size_t kind, const QByteArray& digits) {
    const qsizetype wanted = 2 * sumSizes[kind];
    const bool isShortCrc = kind == 0 && digits.size() < wanted;
    if ((digits.size() != wanted && !isShortCrc) || !std::all_of(digits.begin(), digits.end(), isHex))
        return {};
    return QByteArray::fromHex(digits.rightJustified(wanted, '0'));
}
} // namespace

QByteArray ListEntry::set(const QByteArray& name, const QByteArray& value) {
    if (value.isEmpty()) return {};
    if (name == "name") rom = value.left(longestName);
    if (value == noValue) return {};
    if (name == "size") {
        bool isNumber = std::all_of(value.begin(), value.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (isNumber) size = value.toLongLong(&isNumber);
        if (!isNumber) return "the size is no number of bytes";
    }
    const auto found = std::find(listNames.begin(), listNames.end(), name);
    if (found == listNames.end()) return {};
    const auto kind = static_cast<size_t>(found - listNames.begin());
    sums[kind] = sumOf(kind, value);
    return sums[kind].isEmpty() ? QByteArray("the ") + sumNames[kind] + " is none" : QByteArray();
}

bool ListEntry::hasSum() const {
    return std::any_of(sums.begin(), sums.end(), [](const QByteArray& sum) { return !sum.isEmpty(); });
}

std::optional<SumKind> ListEntry::commonKind(const Sums& one, const Sums& other) {
    for (size_t kind = sumKinds; kind-- > 0;) {
        if (!one[kind].isEmpty() && !other[kind].isEmpty()) return static_cast<SumKind>(kind);
    }
    return std::nullopt;
}

void ListGame::add(const ListEntry& rom) {
    if (!rom.hasSum()) return;
    m_roms.push_back(rom);
    if (m_roms.size() >= mostRoms) handOver();
}

void ListGame::handOver() {
    for (ListEntry& rom : m_roms) {
        rom.title = description.isEmpty() ? name : description;
        rom.company = manufacturer.isEmpty() ? publisher : manufacturer;
        rom.year = year;
        m_take(rom);
    }
    m_roms.clear();
}

void ListGame::end() {
    handOver();
    for (QByteArray* text : {&name, &description, &manufacturer, &publisher, &year}) text->clear();
}

} // namespace torvane
