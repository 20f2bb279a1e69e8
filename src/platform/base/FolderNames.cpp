// SPDX-License-Identifier: MIT
// Reading, matching and sorting the names of a folder: three passes over plain bytes.
#include "FolderNames.h"
#include "NamePattern.h"
#include "NativeText.h"
#include "Paths.h"

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace torvane {

namespace {
struct Entry {
    quint64 front;  // the first eight bytes of the key, so that most comparisons touch no further memory
    quint32 start;  // of the name in `names`, and of its key in `keys`
    quint16 length; // of the name in bytes; the kernel's limit is 255
    quint32 keyStart;
    quint16 keyLength;
};

bool isFile(int folder, const dirent& entry) {
    if (entry.d_type == DT_REG) return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

// The form of a name that decides its place: lower case, as UTF-8.
void appendKey(QByteArray& keys, QByteArrayView name) {
    const qsizetype start = keys.size();
    for (const char c : name) {
        if (static_cast<uchar>(c) >= 0x80) {
            keys.truncate(start);
            keys.append(NativeText::toNative(NativeText::fromNative(name).toCaseFolded()));
            return;
        }
        keys.append(c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c);
    }
}

quint64 frontOf(QByteArrayView key) {
    quint64 front = 0;
    for (qsizetype i = 0; i < 8; ++i) {
        front = front << 8 | (i < key.size() ? static_cast<uchar>(key[i]) : 0);
    }
    return front;
}

struct Reading {
    QByteArray names;
    QByteArray keys;
    std::vector<Entry> entries;

    void add(QByteArrayView name) {
        Entry entry{0, static_cast<quint32>(names.size()), static_cast<quint16>(name.size()),
                    static_cast<quint32>(keys.size()), 0};
        names.append(name);
        appendKey(keys, name);
        entry.keyLength = static_cast<quint16>(keys.size() - entry.keyStart);
        entry.front = frontOf(QByteArrayView(keys).sliced(entry.keyStart, entry.keyLength));
        entries.push_back(entry);
    }

    QByteArrayView name(const Entry& e) const { return QByteArrayView(names).sliced(e.start, e.length); }
    QByteArrayView key(const Entry& e) const { return QByteArrayView(keys).sliced(e.keyStart, e.keyLength); }

    void sort() {
        std::sort(entries.begin(), entries.end(), [this](const Entry& a, const Entry& b) {
            if (a.front != b.front) return a.front < b.front;
            const int order = key(a).compare(key(b));
            return order != 0 ? order < 0 : name(a).compare(name(b)) < 0;
        });
    }
};
} // namespace

std::shared_ptr<const FolderNames> FolderNames::read(const QString& folder, const QString& pattern) {
    auto table = std::make_shared<FolderNames>();
    const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(Paths::real(folder).constData()), closedir);
    if (!dir) return table;
    const NamePattern matcher(pattern);
    Reading reading;
    while (const dirent* entry = readdir(dir.get())) {
        const QByteArrayView name(entry->d_name, static_cast<qsizetype>(std::strlen(entry->d_name)));
        if (name.front() != '.' && matcher.matches(name) && isFile(dirfd(dir.get()), *entry)) {
            reading.add(name);
        }
    }
    reading.sort();
    table->m_text.reserve(reading.names.size());
    table->m_ends.reserve(reading.entries.size());
    for (const Entry& entry : reading.entries) {
        table->m_text.append(reading.name(entry));
        table->m_ends.push_back(static_cast<quint32>(table->m_text.size()));
    }
    return table;
}

QByteArrayView FolderNames::bytes(int index) const {
    const auto at = static_cast<size_t>(index);
    const quint32 start = at == 0 ? 0 : m_ends[at - 1];
    return QByteArrayView(m_text).sliced(start, m_ends[at] - start);
}

QString FolderNames::name(int index) const { return NativeText::fromNative(bytes(index)); }

} // namespace torvane
