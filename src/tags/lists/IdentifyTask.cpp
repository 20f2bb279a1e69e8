// SPDX-License-Identifier: MIT
// Choosing what is read.
#include "IdentifyTask.h"
#include "catalogue/TagLine.h"

namespace torvane {

// A list may know the image with the line ends that it ends in, or with some of them: its checksum decides.
std::vector<qint64> IdentifyTask::lengthsOf(const ImageEnd& end) const {
    std::vector<qint64> lengths;
    for (int i = 0; i <= end.lineEnds; ++i) {
        const qint64 length = end.body - i * TagLine::lineEnd.size();
        if (m_index.mayHave(length)) lengths.push_back(length);
    }
    return lengths;
}

FoundGame IdentifyTask::found(const QByteArray& member) const {
    const auto& [name, path] = game();
    return {name, path.chopped(name.size()), member, {}, {}, false};
}

void IdentifyTask::readFile() {
    const GameImage image(game().path);
    FoundGame found = this->found();
    for (const qint64 length : lengthsOf(image.end()))
        found.images.push_back({length, image.sums(length, m_index.wanted())});
    m_found.push_back(std::move(found));
}

void IdentifyTask::readArchive() {
    GameArchive archive(game().path, names());
    for (const auto& member : archive.members()) {
        FoundGame found = this->found(member.name);
        SummedImage claim{member.size, {}};
        claim.sums[static_cast<size_t>(SumKind::crc32)] = member.crc32;
        const bool isCertain = m_index.isCertain(member.size, member.crc32);
        const bool needsBytes = m_depth == Depth::unpackAll || !member.isUsual ||
                                (!isCertain && m_index.mayHide(member.size, member.crc32));
        if (needsBytes) {
            auto read = archive.read(member, m_index.wanted(),
                                     [this](const ImageEnd& end) { return lengthsOf(end); });
            if (!read.fault.isEmpty()) addFault(member.name, read.fault);
            if (!read.fault.isEmpty()) continue;
            found.images = std::move(read.images);
        } else if (isCertain) {
            found.images.push_back(std::move(claim));
        }
        m_found.push_back(std::move(found));
    }
}

void IdentifyTask::take() {
    if (!isWhole()) m_games.addUnread();
    for (FoundGame& found : m_found) m_games.add(std::move(found));
}

} // namespace torvane
