// SPDX-License-Identifier: MIT
// Finding the one folder of an archive whose files count as top-level.
#include "ArchiveTop.h"
#include "EntryName.h"
#include "NativeText.h"

namespace torvane {

namespace {
struct EntryPlace {
    QByteArrayView folder; ///< the first folder of the path
    QByteArrayView rest;   ///< the path after it
    bool isAtTop;
};

EntryPlace entryPlaceOf(QByteArrayView entry) {
    while (entry.startsWith("./")) entry = entry.sliced(2);
    const qsizetype slash = entry.indexOf('/');
    if (slash < 0) return {{}, entry, true};
    return {entry.first(slash), entry.sliced(slash + 1), false};
}

// One key for all spellings of a folder. Empty for folders that don't count: those with rejected names, and
// the one that macOS adds beside the packed folder for its own data.
QString keyOf(QByteArrayView folder) {
    if (folder == "__MACOSX") return {};
    return NativeText::folded(NativeText::fromNative(EntryName::sanitized(folder)));
}
} // namespace

ArchiveTop::ArchiveTop(const Archive& archive, const Wanted& isWanted, Pulse& pulse) : m_isWanted(isWanted) {
    for (qint64 i = 0; i < archive.count() && !m_hasWanted && pulse.shouldContinue(); ++i) lookAt(archive, i);
    if (m_hasWanted || m_folders.size() != 1) {
        m_folders.clear();
    } else {
        m_hasWanted = m_hasWantedInFolder;
    }
}

void ArchiveTop::lookAt(const Archive& archive, qint64 index) {
    const QByteArray entry = archive.name(index);
    const auto isWantedFile = [&](QByteArrayView name) {
        const QByteArray file = EntryName::sanitized(name);
        return !file.isEmpty() && m_isWanted(file) && archive.kind(index) == Archive::Kind::file;
    };
    const EntryPlace place = entryPlaceOf(entry);
    const bool isFolder = !place.isAtTop || archive.kind(index) == Archive::Kind::folder;
    const QString folder = keyOf(place.isAtTop ? place.rest : place.folder);
    if (isFolder && !folder.isEmpty()) m_folders.insert(folder);
    if (place.isAtTop) {
        m_hasWanted = isWantedFile(place.rest);
    } else if (!folder.isEmpty()) {
        m_hasWantedInFolder = m_hasWantedInFolder || isWantedFile(place.rest);
        m_hasWantedBelow =
            m_hasWantedBelow || isWantedFile(place.rest.sliced(place.rest.lastIndexOf('/') + 1));
    }
}

QByteArray ArchiveTop::fileName(QByteArrayView entry) const {
    const EntryPlace place = entryPlaceOf(entry);
    const QByteArray name = EntryName::sanitized(place.rest);
    if (place.isAtTop || name.isEmpty()) return name;
    return m_folders.contains(keyOf(place.folder)) && m_isWanted(name) ? name : QByteArray();
}

} // namespace torvane
