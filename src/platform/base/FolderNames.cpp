// SPDX-License-Identifier: MIT
// Reading, matching and sorting the names of a folder: three passes over plain bytes.
#include "FolderNames.h"
#include "NamePattern.h"
#include "NativeText.h"
#include "Paths.h"

#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace torvane {

namespace {
constexpr qsizetype pieceSize = 8;
constexpr off_t mostRoom = 16 << 20;
constexpr size_t usualEntrySize = 32;

struct Entry {
    quint64 piece; // eight bytes of the key, those by which the sorting goes on at the moment
    quint32 start; // of the name in the bytes read
    quint32 keyStart;
    quint32 matches; // a bit for each pattern that the name matches
    quint16 length;  // of the name in bytes; the kernel's limit is 255
    quint16 keyLength;

    bool matchesPattern(size_t number) const { return (matches >> number & 1) != 0; }
};

bool isFile(int folder, const dirent& entry) {
    if (entry.d_type == DT_REG) return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

bool isAscii(char c) { return static_cast<uchar>(c) < 0x80; }

// Appends a name with all that is not ASCII in it in lower case.
void appendFolded(std::string& text, QByteArrayView name) {
    for (auto run = name.begin(); run != name.end();) {
        const auto foreign = std::find_if_not(run, name.end(), isAscii);
        text.append(run, foreign);
        run = std::find_if(foreign, name.end(), isAscii);
        text +=
            NativeText::toNative(NativeText::folded(NativeText::fromNative({foreign, run}))).toStdString();
    }
}

// Eight bytes at once with A to Z in lower case: a byte's top bit is set in `letters` if it is one of them.
quint64 lowered(quint64 bytes) {
    constexpr quint64 each = 0x0101010101010101;
    const quint64 low = bytes & 0x7F * each;
    const quint64 fromA = low + (0x80 - 'A') * each;
    const quint64 behindZ = low + (0x7F - 'Z') * each;
    const quint64 letters = (fromA ^ behindZ) & ~bytes & 0x80 * each;
    return bytes | letters >> 2;
}

// Eight bytes of a key from a place on, as a number of the same order; zeros stand behind its end.
quint64 pieceOf(QByteArrayView key, qsizetype from) {
    const qsizetype rest = key.size() - from;
    if (rest >= pieceSize) return lowered(qFromBigEndian<quint64>(key.data() + from));
    char bytes[pieceSize] = {};
    if (rest > 0) std::memcpy(bytes, key.data() + from, static_cast<size_t>(rest));
    return lowered(qFromBigEndian<quint64>(bytes));
}

struct Reading {
    std::string bytes;
    std::vector<Entry> entries;

    // The key, which decides the place, is the name in lower case. Most names are ASCII: their pieces are
    // made lower when they are compared. Others have a key of their own.
    void add(QByteArrayView name, quint32 matches) {
        Entry entry{0, static_cast<quint32>(bytes.size()), 0, matches, static_cast<quint16>(name.size()), 0};
        bytes.append(name.data(), static_cast<size_t>(name.size()));
        entry.keyStart = entry.start;
        if (!std::all_of(name.begin(), name.end(), isAscii)) {
            entry.keyStart = static_cast<quint32>(bytes.size());
            appendFolded(bytes, name);
        }
        entry.keyLength = static_cast<quint16>(bytes.size() - entry.keyStart);
        entries.push_back(entry);
    }

    // On most file systems the size of a folder tells how much there is to read. Room that is not needed
    // costs nothing, and growing step by step costs copies.
    void makeRoom(int folder) {
        struct stat info {};
        if (fstat(folder, &info) != 0) return;
        const auto size = static_cast<size_t>(std::clamp<off_t>(info.st_size, 0, mostRoom));
        bytes.reserve(size);
        entries.reserve(size / usualEntrySize);
    }

    QByteArrayView name(const Entry& e) const { return {bytes.data() + e.start, e.length}; }
    QByteArrayView key(const Entry& e) const { return {bytes.data() + e.keyStart, e.keyLength}; }

    void sort() { sortFrom(0, entries.begin(), entries.end()); }

    using Place = std::vector<Entry>::iterator;

    // Sorts entries that are alike up to a place of their keys: by the next eight bytes, which are compared
    // as numbers, and those that are alike in them, too, by what follows. Names of one series are alike for
    // many letters; a comparison from their beginning would read all of them again and again.
    void sortFrom(qsizetype from, Place first, Place last) {
        std::for_each(first, last, [&](Entry& entry) { entry.piece = pieceOf(key(entry), from); });
        std::sort(first, last, [](const Entry& a, const Entry& b) { return a.piece < b.piece; });
        while (first != last) {
            const quint64 piece = first->piece;
            const Place end = std::find_if(first, last, [&](const Entry& e) { return e.piece != piece; });
            const bool keysEnd = (piece & 0xFF) == 0; // no name holds a zero byte
            if (end - first > 1) keysEnd ? sortByName(first, end) : sortFrom(from + pieceSize, first, end);
            first = end;
        }
    }

    // Whether two patterns match the same names.
    bool isAlike(size_t one, size_t other) const {
        return std::all_of(entries.begin(), entries.end(), [=](const Entry& entry) {
            return entry.matchesPattern(one) == entry.matchesPattern(other);
        });
    }

private:
    void sortByName(Place first, Place last) {
        std::sort(first, last,
                  [this](const Entry& a, const Entry& b) { return name(a).compare(name(b)) < 0; });
    }
};

void readInto(Reading& reading, const QString& folder, const std::vector<NamePattern>& patterns) {
    const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(Paths::real(folder).constData()), closedir);
    if (!dir) return;
    reading.makeRoom(dirfd(dir.get()));
    while (const dirent* entry = readdir(dir.get())) {
        const QByteArrayView name(entry->d_name, static_cast<qsizetype>(std::strlen(entry->d_name)));
        if (name.front() == '.') continue;
        quint32 matches = 0;
        for (size_t i = 0; i < patterns.size(); ++i) matches |= quint32{patterns[i].matches(name)} << i;
        if (matches != 0 && isFile(dirfd(dir.get()), *entry)) reading.add(name, matches);
    }
}
} // namespace

std::shared_ptr<const FolderNames> FolderNames::read(const QString& folder, const QString& pattern) {
    return read(folder, QStringList(pattern)).front();
}

std::vector<std::shared_ptr<const FolderNames>> FolderNames::read(const QString& folder,
                                                                  const QStringList& patterns) {
    Reading reading;
    readInto(reading, folder, {patterns.begin(), patterns.end()});
    reading.sort();
    std::vector<std::shared_ptr<const FolderNames>> tables;
    for (size_t own = 0; own < static_cast<size_t>(patterns.size()); ++own) {
        size_t like = 0;
        while (like < own && !reading.isAlike(like, own)) ++like;
        if (like < own) {
            tables.push_back(tables[like]);
            continue;
        }
        auto table = std::make_shared<FolderNames>();
        table->m_text.reserve(reading.bytes.size());
        for (const Entry& entry : reading.entries) {
            if (entry.matchesPattern(own)) table->append(reading.name(entry));
        }
        tables.push_back(std::move(table));
    }
    return tables;
}

void FolderNames::append(QByteArrayView name) {
    m_text.append(name.data(), static_cast<size_t>(name.size()));
    m_ends.push_back(static_cast<quint32>(m_text.size()));
}

QByteArrayView FolderNames::bytes(int index) const {
    const auto at = static_cast<size_t>(index);
    const quint32 start = at == 0 ? 0 : m_ends[at - 1];
    return {m_text.data() + start, static_cast<qsizetype>(m_ends[at] - start)};
}

QString FolderNames::name(int index) const { return NativeText::fromNative(bytes(index)); }

} // namespace torvane
