// SPDX-License-Identifier: MIT
// Texts with their lengths before them.
#include "EntryPack.h"

#include <cstring>

namespace torvane {

// A text of a list has at most 4096 characters.
void EntryPack::addText(const QByteArray& text) {
    const auto size = static_cast<quint16>(text.size());
    m_bytes.append(reinterpret_cast<const char*>(&size), sizeof size);
    m_bytes.append(text.constData(), size);
}

QByteArray EntryPack::text(size_t& at) const {
    quint16 size = 0;
    std::memcpy(&size, m_bytes.data() + at, sizeof size);
    at += sizeof size + size;
    return {m_bytes.data() + at - size, size};
}

void EntryPack::add(const ListEntry& entry) {
    for (const QByteArray* text : {&entry.title, &entry.rom, &entry.company, &entry.year}) addText(*text);
    m_bytes.append(reinterpret_cast<const char*>(&entry.size), sizeof entry.size);
    for (const QByteArray& sum : entry.sums) addText(sum);
}

void EntryPack::each(const ListGame::Take& take) const {
    for (size_t at = 0; at < m_bytes.size();) {
        ListEntry entry;
        for (QByteArray* text : {&entry.title, &entry.rom, &entry.company, &entry.year})
            *text = this->text(at);
        std::memcpy(&entry.size, m_bytes.data() + at, sizeof entry.size);
        at += sizeof entry.size;
        for (QByteArray& sum : entry.sums) sum = text(at);
        take(entry);
    }
}

} // namespace torvane
