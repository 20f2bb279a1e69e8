// SPDX-License-Identifier: MIT
// What the two forms share.
#include "ListReader.h"
#include "TextList.h"
#include "XmlList.h"

namespace torvane {

// Blanks are skipped, and so are the bytes of a byte order mark and the zeros of UTF-16.
std::unique_ptr<ListReader> ListReader::of(const QByteArray& beginning, Takers takers) {
    for (const char c : beginning) {
        if (c == '<') return std::make_unique<XmlList>(std::move(takers));
        if (static_cast<signed char>(c) > ' ') break;
    }
    return std::make_unique<TextList>(std::move(takers));
}

void ListReader::setRom(const QByteArray& name, const QByteArray& value) {
    if (name == "status" || name == "flags") m_isUnknown = m_isUnknown || value == "nodump";
    const QByteArray fault = m_rom.set(name, value);
    if (m_romFault.isEmpty()) m_romFault = fault;
}

void ListReader::endRom() {
    if (m_isUnknown) return;
    m_romFault.isEmpty() ? m_game.add(m_rom) : m_flaw(line(), m_romFault);
}

} // namespace torvane
