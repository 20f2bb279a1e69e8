// SPDX-License-Identifier: MIT
// Choosing members, and reading them.
#include "GameArchive.h"
#include "StreamedSums.h"
#include "catalogue/ZipMembers.h"
#include "platform/base/ArchiveTop.h"
#include "platform/base/Paths.h"

#include <QtEndian>

namespace torvane {

namespace {
QByteArray bytesOfCrc(std::optional<quint32> crc) {
    if (!crc) return {};
    QByteArray bytes(sizeof *crc, Qt::Uninitialized);
    qToBigEndian(*crc, bytes.data());
    return bytes;
}
} // namespace

GameArchive::GameArchive(const QByteArray& path, const NameCut& cut, const UnZip::Limits& limits)
    : m_cut(cut), m_limits(limits), m_archive(Paths::spelled(path), limits.entries, m_pulse) {}

std::vector<GameArchive::Member> GameArchive::members() {
    const ArchiveTop::Wanted isWanted = [this](QByteArrayView name) { return isPlayable(name, m_cut); };
    const ArchiveTop top(m_archive, isWanted, m_pulse);
    std::vector<Member> members;
    for (qint64 i = 0; i < m_archive.count(); ++i) {
        const QByteArray name = top.fileName(m_archive.name(i));
        if (name.isEmpty() || !isWanted(name) || m_archive.kind(i) != Archive::Kind::file) continue;
        Member member{i, name, m_archive.claimedSize(i), bytesOfCrc(m_archive.claimedCrc(i)), false};
        member.isUsual = faultOf(member).isEmpty();
        members.push_back(member);
    }
    return members;
}

QByteArray GameArchive::faultOf(const Member& member) const {
    if (m_archive.isEncrypted(member.index)) return "it is encrypted";
    if (!m_archive.isMethodKnown(member.index)) return "it is packed by an unknown method";
    return member.size > m_limits.bytesPerEntry ? "it is too large for a game" : QByteArray();
}

QByteArray GameArchive::pass(const Member& member, const std::function<bool(QByteArrayView)>& take) {
    qint64 size = 0;
    bool isAllowed = true;
    bool hasEnough = false;
    const bool isWhole = m_archive.read(member.index, [&](QByteArrayView block) {
        size += block.size();
        m_bytes += block.size();
        isAllowed = size <= m_limits.bytesPerEntry && m_bytes <= m_limits.bytesInAll;
        hasEnough = isAllowed && !take(block);
        return isAllowed && !hasEnough;
    });
    if (!isAllowed) return "it is too large, or there are too many large ones before it";
    return isWhole || hasEnough ? QByteArray() : "it is damaged";
}

GameArchive::Images GameArchive::read(const Member& member, WantedSums wanted, const Lengths& lengths) {
    Images result;
    result.fault = faultOf(member);
    if (!result.fault.isEmpty()) return result;
    StreamedSums streamed(wanted);
    result.fault = pass(member, [&](QByteArrayView block) {
        streamed.add(block);
        return true;
    });
    if (!result.fault.isEmpty()) return result;
    bool isStreamed = false; // it serves for one length
    for (const qint64 length : lengths(streamed.end())) {
        if (!isStreamed && streamed.canEndAt(length)) {
            result.images.push_back({length, streamed.finish(length)});
            isStreamed = true;
            continue;
        }
        SumMaker maker(wanted);
        qint64 left = length;
        result.fault = pass(member, [&](QByteArrayView block) {
            maker.add(block.first(std::min<qint64>(left, block.size())));
            left -= std::min<qint64>(left, block.size());
            return left > 0;
        });
        result.images.push_back({length, maker.finish()});
    }
    return result;
}

} // namespace torvane
