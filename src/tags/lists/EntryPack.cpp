// SPDX-License-Identifier: MIT
// Texts with their lengths before them.
#include "EntryPack.h"

#include <cstring>

namespace torvane {

namespace {
// A text of a list has at most 4096 characters.
void addText(std::string& bytes, QByteArrayView text) {
    const auto size = static_cast<quint16>(text.size());
    bytes.append(reinterpret_cast<const char*>(&size), sizeof size);
    bytes.append(text.data(), size);
}
} // namespace

QByteArray EntryPack::text(size_t& at) const {
    quint16 size = 0;
    std::memcpy(&size, m_bytes.data() + at, sizeof size);
    at += sizeof size + size;
    return {m_bytes.data() + at - size, size};
}

// The file of a game mostly bears its title, which is kept once. Added in one piece, a single entry takes no
// more memory than it needs.
void EntryPack::add(const ListEntry& entry) {
    const bool bearsTitle = entry.rom.startsWith(entry.title);
    std::string bytes(1, static_cast<char>(bearsTitle));
    addText(bytes, entry.title);
    addText(bytes, QByteArrayView(entry.rom).sliced(bearsTitle ? entry.title.size() : 0));
    for (const QByteArray* text : {&entry.company, &entry.year}) addText(bytes, *text);
    bytes.append(reinterpret_cast<const char*>(&entry.size), sizeof entry.size);
    for (const QByteArray& sum : entry.sums) addText(bytes, sum);
    m_bytes += bytes;
}

void EntryPack::each(const ListGame::Take& take) const {
    for (size_t at = 0; at < m_bytes.size();) {
        ListEntry entry;
        const bool bearsTitle = m_bytes[at++] != 0;
        entry.title = text(at);
        entry.rom = bearsTitle ? entry.title + text(at) : text(at);
        for (QByteArray* text : {&entry.company, &entry.year}) *text = this->text(at);
        std::memcpy(&entry.size, m_bytes.data() + at, sizeof entry.size);
        at += sizeof entry.size;
        for (QByteArray& sum : entry.sums) sum = text(at);
        take(entry);
    }
}

} // namespace torvane
