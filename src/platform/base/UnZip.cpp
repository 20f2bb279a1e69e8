// SPDX-License-Identifier: MIT
// Unpacking an archive, entry by entry.
#include "UnZip.h"
#include "Archive.h"
#include "EntryName.h"
#include "FileRights.h"
#include "HiddenFile.h"
#include "Leftovers.h"
#include "NamePattern.h"
#include "NativeText.h"
#include "Paths.h"

#include <QSet>
#include <cstdio>
#include <sys/statvfs.h>

namespace torvane {

namespace {
class Unpacking {
public:
    Unpacking(const QString& folder, const UnZip::Limits& limits, Pulse& pulse)
        : m_folder(Paths::real(folder)), m_limits(limits), m_pulse(pulse) {}

    void unpack(Archive& archive, const NamePattern& pattern) {
        for (qint64 i = 0; i < archive.count() && m_bytes <= m_limits.bytesInAll && m_pulse.shouldContinue();
             ++i) {
            const QByteArray name = EntryName::sanitized(archive.name(i));
            const QString folded = NativeText::folded(NativeText::fromNative(name));
            if (name.isEmpty() || !pattern.matches(name) || m_done.contains(folded)) continue;
            if (!archive.isFile(i) || archive.claimedSize(i) > m_limits.bytesPerEntry || !isFree(name))
                continue;
            ignoring([&] {
                if (unpackEntry(archive, i, name)) m_done.insert(folded);
            });
        }
    }

private:
    // Whether a name is that of nothing, or of a file that may be replaced.
    bool isFree(const QByteArray& name) const {
        struct stat info {};
        return m_folder.stat(name, info) ? S_ISREG(info.st_mode) : errno == ENOENT;
    }

    bool hasRoomFor(qint64 bytes) const {
        struct statvfs disk {};
        // Where the system doesn't know, the write will tell.
        if (fstatvfs(m_folder.number(), &disk) != 0 || disk.f_blocks == 0) return true;
        const auto block = static_cast<quint64>(disk.f_frsize);
        const auto wanted = static_cast<quint64>(m_limits.bytesLeftFree + bytes);
        return disk.f_bavail >= wanted / block + 1;
    }

    // True if the entry is whole and has its name. No sync: what is unpacked here can be unpacked again.
    bool unpackEntry(Archive& archive, qint64 index, const QByteArray& name) {
        HiddenFile fresh(m_folder, HiddenFile::replacement);
        qint64 size = 0;
        const bool isWhole = archive.read(index, [&](QByteArrayView block) {
            size += block.size();
            m_bytes += block.size();
            const bool isAllowed = size <= m_limits.bytesPerEntry && m_bytes <= m_limits.bytesInAll &&
                                   hasRoomFor(block.size()) && m_pulse.shouldContinue();
            if (isAllowed) fresh.write(block);
            return isAllowed;
        });
        if (!isWhole || !m_pulse.shouldContinue()) return false;
        FileRights::give(fresh.handle(), nullptr);
        const int folder = m_folder.number();
        if (renameat(folder, fresh.name().constData(), folder, name.constData()) != 0) return false;
        fresh.forget();
        return true;
    }

    Folder m_folder;
    const UnZip::Limits& m_limits;
    Pulse& m_pulse;
    qint64 m_bytes = 0;
    QSet<QString> m_done;
};
} // namespace

void UnZip::extract(const QString& pattern) {
    // From here on nothing of this object is used: the question whether to go on may be its end.
    const Limits limits = m_limits;
    const QString path = m_archive;
    Pulse pulse(goesOn);
    Leftovers::sweep(m_folder);
    ignoring([&, folder = m_folder] {
        Unpacking unpacking(folder, limits, pulse);
        Archive archive(path, limits.entries, pulse);
        unpacking.unpack(archive, NamePattern(pattern));
    });
}

} // namespace torvane
