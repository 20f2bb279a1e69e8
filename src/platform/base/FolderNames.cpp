// SPDX-License-Identifier: MIT
// Reading, matching and sorting the names of a folder.
#include "FolderNames.h"
#include "NamePattern.h"
#include "NativeText.h"
#include "Paths.h"
#include "SystemCalls.h"

#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace torvane {

namespace {
constexpr off_t mostRoom = 16 << 20;
constexpr size_t usualEntrySize = 32;

// The first bytes of a key as numbers of the same order: most comparisons end with them.
using Front = std::array<quint64, 3>;

struct Entry {
    Front front;   // of the key
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
bool isAscii(QByteArrayView text) {
    quint64 bits = 0;
    while (text.size() >= qsizetype{sizeof bits}) {
        bits |= qFromUnaligned<quint64>(text.data());
        text = text.sliced(sizeof bits);
    }
    for (const char c : text) bits |= static_cast<uchar>(c);
    return (bits & 0x8080808080808080) == 0;
}
// Without a branch, so that the compiler takes many bytes at once.
char lowered(char c) { return static_cast<char>(c | (static_cast<uchar>(c - 'A') < 26 ? 0x20 : 0)); }

Front frontOf(QByteArrayView key) {
    // No name holds a zero byte: a shorter key comes first.
    std::array<char, sizeof(Front)> bytes = {};
    std::memcpy(bytes.data(), key.data(), std::min(bytes.size(), static_cast<size_t>(key.size())));
    for (char& c : bytes) c = lowered(c);
    Front front;
    for (size_t i = 0; i < front.size(); ++i) {
        front[i] = qFromBigEndian<quint64>(bytes.data() + i * sizeof front[i]);
    }
    return front;
}

// Appends a name with all that is not ASCII in it without regard to case.
void appendFolded(std::string& text, QByteArrayView name) {
    const auto ascii = [](char c) { return isAscii(c); };
    for (auto run = name.begin(); run != name.end();) {
        const auto foreign = std::find_if_not(run, name.end(), ascii);
        text.append(run, foreign);
        run = std::find_if(foreign, name.end(), ascii);
        if (run == foreign) return;
        const QString folded = NativeText::folded(NativeText::fromNative({foreign, run}));
        text += NativeText::toNative(folded).toStdString();
    }
}

struct Reading {
    std::string bytes;
    std::vector<Entry> entries;

    // The key, which decides the place, is the name without regard to case. That of an ASCII name is the name
    // itself, since comparing disregards the case of A to Z; others have a key of their own.
    void add(QByteArrayView name, quint32 matches) {
        Entry entry{{}, static_cast<quint32>(bytes.size()), 0, matches, static_cast<quint16>(name.size()), 0};
        bytes.append(name.data(), static_cast<size_t>(name.size()));
        entry.keyStart = entry.start;
        if (!isAscii(name)) {
            entry.keyStart = static_cast<quint32>(bytes.size());
            appendFolded(bytes, name);
        }
        entry.keyLength = static_cast<quint16>(bytes.size() - entry.keyStart);
        entry.front = frontOf(key(entry));
        entries.push_back(entry);
    }

    // On most file systems the size of a folder predicts how much there is to read. Unused space costs
    // nothing, but growing step by step costs copies.
    void makeRoom(int folder) {
        struct stat info {};
        if (fstat(folder, &info) != 0) return;
        const auto size = static_cast<size_t>(std::clamp<off_t>(info.st_size, 0, mostRoom));
        bytes.reserve(size);
        entries.reserve(size / usualEntrySize);
    }

    QByteArrayView name(const Entry& e) const { return {bytes.data() + e.start, e.length}; }
    QByteArrayView key(const Entry& e) const { return {bytes.data() + e.keyStart, e.keyLength}; }
    // Sorted names are anywhere in the bytes read: fetches that of a later entry into the cache, since
    // waiting for each in turn takes longer than copying it.
    void fetchAhead(const Entry& e) const {
        constexpr qsizetype steps = 16;
        const Entry* later = entries.data() + entries.size() - &e > steps ? &e + steps : &e;
        __builtin_prefetch(bytes.data() + later->start);
    }
    // What the front leaves of a key.
    QByteArrayView keyEnd(const Entry& e) const {
        return key(e).sliced(std::min<qsizetype>(sizeof(Front), e.keyLength));
    }

    void sort() {
        std::sort(entries.begin(), entries.end(), [this](const Entry& a, const Entry& b) {
            for (size_t i = 0; i < a.front.size(); ++i) {
                if (a.front[i] != b.front[i]) return a.front[i] < b.front[i];
            }
            const int order = keyEnd(a).compare(keyEnd(b), Qt::CaseInsensitive);
            return order != 0 ? order < 0 : name(a).compare(name(b)) < 0;
        });
    }

    // Whether two patterns match the same names.
    bool isAlike(size_t one, size_t other) const {
        return std::all_of(entries.begin(), entries.end(), [=](const Entry& entry) {
            return entry.matchesPattern(one) == entry.matchesPattern(other);
        });
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

void FolderNames::requireReadable(const QString& folder) {
    aboutFile(folder, [&] {
        const QByteArray path = Paths::real(folder);
        opened(uninterrupted([&] { return open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    });
}

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
        table->m_ends.reserve(reading.entries.size());
        for (const Entry& entry : reading.entries) {
            reading.fetchAhead(entry);
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

int FolderNames::indexOf(QByteArrayView name) const {
    for (int i = 0; i < count(); ++i) {
        if (bytes(i) == name) return i;
    }
    return -1;
}

std::shared_ptr<const FolderNames>
FolderNames::without(const std::function<bool(QByteArrayView)>& isLeftOut) const {
    auto rest = std::make_shared<FolderNames>();
    for (int i = 0; i < count(); ++i) {
        if (!isLeftOut(bytes(i))) rest->append(bytes(i));
    }
    return rest;
}

QString FolderNames::name(int index) const { return NativeText::fromNative(bytes(index)); }

} // namespace torvane
