// SPDX-License-Identifier: MIT
// Reading in blocks.
#include "GameList.h"
#include "ListReader.h"

namespace torvane {

namespace {
constexpr qint64 listBlock = 64 << 10; // in bytes
}

GameList::GameList(const QByteArray& path) : m_file(File::ofReal(path)), m_state(infoOf(m_file.handle())) {}

QByteArray GameList::readAll(const Reading& reading) const {
    std::unique_ptr<ListReader> reader;
    qint64 count = 0;
    const auto take = [&](const ListEntry& entry) {
        ++count;
        reading.entry(entry);
    };
    for (qint64 position = 0; !reading.isOver();) {
        const QByteArray block = m_file.readAt(position, listBlock);
        if (!reader) reader = ListReader::of(block, {take, reading.flaw});
        if (block.isEmpty()) break;
        reader->add(block);
        if (!reader->fault().isEmpty()) return reader->fault();
        position += block.size();
    }
    if (!isSameState(m_state, infoOf(m_file.handle()))) failAsChanged();
    if (!reader || reading.isOver()) return {};
    reader->finish();
    if (!reader->fault().isEmpty()) return reader->fault();
    return count > 0 ? QByteArray() : "it has no game with a checksum";
}

QByteArray GameList::read(const Reading& reading) {
    Reading keeping = reading;
    keeping.entry = [&](const ListEntry& entry) {
        reading.entry(entry);
        if (!m_isKept) return;
        m_kept.add(entry);
        m_isKept = m_kept.size() <= mostKept;
        if (!m_isKept) m_kept.clear();
    };
    return readAll(keeping);
}

void GameList::each(const ListGame::Take& take) const {
    if (m_isKept) return m_kept.each(take);
    readAll({take, [](qint64, const QByteArray&) {}, [] { return false; }});
}

} // namespace torvane
