// SPDX-License-Identifier: MIT
// Unpacking an archive, entry by entry.
#include "UnZip.h"
#include "ArchiveTop.h"
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

    UnZip::Reason unpack(Archive& archive, const NamePattern& pattern, const ArchiveTop::Wanted& isWanted) {
        const ArchiveTop top(archive, isWanted, m_pulse);
        auto reason = top.hasWantedBelowOnly() ? UnZip::Reason::inSubfolders : UnZip::Reason::nothingWanted;
        bool hasUnpackedWanted = false;
        for (qint64 i = 0; i < archive.count() && m_bytes <= m_limits.bytesInAll && m_pulse.shouldContinue();
             ++i) {
            const QByteArray name = top.fileName(archive.name(i));
            if (name.isEmpty() || !pattern.matches(name)) continue;
            const QString folded = NativeText::folded(NativeText::fromNative(name));
            if (m_done.contains(folded) || archive.kind(i) != Archive::Kind::file) continue;
            const UnZip::Reason failure = tryEntry(archive, i, name);
            reason = std::max(reason, failure);
            if (failure != UnZip::Reason::none) continue;
            m_done.insert(folded);
            hasUnpackedWanted = hasUnpackedWanted || isWanted(name);
        }
        return hasUnpackedWanted ? UnZip::Reason::none : reason;
    }

private:
    // Whether a name is unused, or that of a file that may be replaced.
    bool isFree(const QByteArray& name) const {
        struct stat info {};
        return m_folder.stat(name, info) ? S_ISREG(info.st_mode) : errno == ENOENT;
    }

    bool hasRoomFor(qint64 bytes) const {
        struct statvfs disk {};
        // If the system doesn't know, the write will show it.
        if (fstatvfs(m_folder.number(), &disk) != 0 || disk.f_blocks == 0) return true;
        const auto block = static_cast<quint64>(disk.f_frsize);
        const auto wanted = static_cast<quint64>(m_limits.bytesLeftFree + bytes);
        return disk.f_bavail >= wanted / block + 1;
    }

    // Why an entry was not unpacked; none if it is complete and has its name.
    UnZip::Reason tryEntry(Archive& archive, qint64 index, const QByteArray& name) {
        if (archive.isEncrypted(index)) return UnZip::Reason::encrypted;
        if (!archive.isMethodKnown(index)) return UnZip::Reason::unknownMethod;
        auto reason = UnZip::Reason::noRoom;
        if (archive.claimedSize(index) > m_limits.bytesPerEntry || !isFree(name)) return reason;
        ignoring([&] { reason = unpackEntry(archive, index, name); });
        return reason;
    }

    // No sync: what is unpacked here can be unpacked again.
    UnZip::Reason unpackEntry(Archive& archive, qint64 index, const QByteArray& name) {
        HiddenFile fresh(m_folder, HiddenFile::replacement);
        qint64 size = 0;
        bool isAllowed = true;
        const bool isWhole = archive.read(index, [&](QByteArrayView block) {
            size += block.size();
            m_bytes += block.size();
            isAllowed = size <= m_limits.bytesPerEntry && m_bytes <= m_limits.bytesInAll &&
                        hasRoomFor(block.size()) && m_pulse.shouldContinue();
            if (isAllowed) fresh.write(block);
            return isAllowed;
        });
        if (!isAllowed || !m_pulse.shouldContinue()) return UnZip::Reason::noRoom;
        if (!isWhole) return UnZip::Reason::damaged;
        FileRights::give(fresh.handle(), nullptr);
        const int folder = m_folder.number();
        if (renameat(folder, fresh.name().constData(), folder, name.constData()) != 0)
            return UnZip::Reason::noRoom;
        fresh.forget();
        return UnZip::Reason::none;
    }

    Folder m_folder;
    const UnZip::Limits& m_limits;
    Pulse& m_pulse;
    qint64 m_bytes = 0;
    QSet<QString> m_done;
};
} // namespace

UnZip::Reason UnZip::extract(const QString& pattern) {
    // Nothing of this object is used from here on: `goesOn` may destroy it.
    const Limits limits = m_limits;
    const QString path = m_archive;
    const ArchiveTop::Wanted wanted = isWanted ? isWanted : [](QByteArrayView) { return true; };
    Pulse pulse(goesOn);
    Leftovers::sweep(m_folder);
    auto reason = Reason::noRoom;
    ignoring([&, folder = m_folder] {
        Unpacking unpacking(folder, limits, pulse);
        reason = Reason::damaged;
        Archive archive(path, limits.entries, pulse);
        reason = unpacking.unpack(archive, NamePattern(pattern), wanted);
    });
    return reason;
}

} // namespace torvane
