// SPDX-License-Identifier: MIT
// Reading and writing records.
#include "TreeRecord.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"
#include "platform/base/SafeFile.h"

#include <QByteArrayList>
#include <algorithm>

namespace torvane {

namespace {
constexpr qsizetype sumLength = 64;
constexpr qsizetype stampStart = 2 * (sumLength + 1);
constexpr qint64 largestRecord = 16 << 20;
const QByteArray versionWord = QByteArrayLiteral("version ");

bool isSum(const QByteArray& text) {
    return text.size() == sumLength && std::all_of(text.begin(), text.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}

// Adds a record of a file, unless it is none.
void addFile(TreeRecord& record, const QByteArray& text) {
    const qsizetype blank = text.indexOf(' ', stampStart);
    if (blank < 0 || text.mid(blank, 3) != " ./") return;
    const QByteArray path = text.sliced(blank + 3);
    if (path.isEmpty() || path.split('/').contains("..")) return;
    LaidFile file;
    file.laid = text.first(sumLength);
    file.sum = text.sliced(sumLength + 1, sumLength);
    if (!isSum(file.laid)) file.laid.clear();
    if (!isSum(file.sum)) return;
    const QByteArray stamp = text.sliced(stampStart, blank - stampStart);
    file.size = stamp.first(std::max<qsizetype>(stamp.indexOf(':'), 0)).toLongLong();
    file.mode = stamp.sliced(stamp.lastIndexOf(':') + 1).toUInt(nullptr, 8) & 07777;
    record.files[path] = file;
}

// The content of the record's file; empty if there is none.
QByteArray storedIn(const QByteArray& folder) {
    try {
        return File::contentOf(Paths::spelled(folder + '/' + TreeRecord::file), largestRecord);
    } catch (const RuntimeFailure& failure) {
        const auto number = failure.number();
        if (number != RuntimeFailure::fileNotFound && number != RuntimeFailure::pathNotFound) throw;
        return {};
    }
}
} // namespace

TreeRecord TreeRecord::of(const QByteArray& folder) {
    TreeRecord record;
    for (const QByteArray& text : storedIn(folder).split('\0')) {
        if (text.startsWith(versionWord)) {
            record.version = text.sliced(versionWord.size());
        } else {
            addFile(record, text);
        }
    }
    return record;
}

QByteArray TreeRecord::toBytes() const {
    QByteArray bytes;
    if (!version.isEmpty()) bytes += versionWord + version + '\0';
    for (const auto& [path, one] : files) {
        bytes += one.laid.isEmpty() ? QByteArray(sumLength, '-') : one.laid;
        bytes += ' ' + one.sum + ' ' + QByteArray::number(one.size) + ':' + QByteArray::number(one.mode, 8);
        bytes += " ./" + path + '\0';
    }
    return bytes;
}

void TreeRecord::store(const QByteArray& folder) const {
    const QByteArray bytes = toBytes();
    if (storedIn(folder) != bytes) SafeFile::replace(Paths::spelled(folder + '/' + file), bytes);
}

} // namespace torvane
