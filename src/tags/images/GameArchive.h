// SPDX-License-Identifier: MIT
// The games in a ZIP archive, read without unpacking anything to the disk: the members that its window would
// list, as far as an emulator can play them.
#pragma once

#include "SumMaker.h"
#include "catalogue/ImageEnd.h"
#include "core/Pieces.h"
#include "platform/base/Archive.h"
#include "platform/base/UnZip.h"

#include <functional>

#include <vector>

namespace torvane {

/// An image, or the beginning of one, that was summed up.
struct SummedImage {
    qint64 length = 0; ///< in bytes
    Sums sums;
};

class GameArchive {
public:
    /// Opens the archive at a real path; reads its directory and nothing else. `cut`: where names of members
    /// are cut. Fails as Archive does.
    GameArchive(const QByteArray& path, const NameCut& cut, const UnZip::Limits& limits = {});

    struct Member {
        qint64 index = 0;
        QByteArray name;      ///< of the file that it is unpacked to
        qint64 size = -1;     ///< as claimed, in bytes; below 0 if unknown
        QByteArray crc32;     ///< as claimed; empty if unknown
        bool isUsual = false; ///< it can be unpacked, as far as the directory shows
    };
    /// The games, in the order of the archive. Of names that differ in case alone the window lists the first
    /// one that is intact; here all are.
    std::vector<Member> members();

    /// Which lengths of an image are to be summed up, by its end.
    using Lengths = std::function<std::vector<qint64>(const ImageEnd&)>;
    struct Images {
        std::vector<SummedImage> images; ///< one for each length
        QByteArray fault;                ///< why the member can't be read, without a line end; else empty
    };
    /// Reads a member; limits are those of UnZip for each member and for all that are read.
    Images read(const Member& member, WantedSums wanted, const Lengths& lengths);

private:
    QByteArray faultOf(const Member& member) const;
    // Passes the bytes of a member on until `take` has had enough; gives why they can't be read.
    QByteArray pass(const Member& member, const std::function<bool(QByteArrayView)>& take);

    NameCut m_cut;
    UnZip::Limits m_limits;
    Pulse m_pulse{nullptr};
    Archive m_archive;
    qint64 m_bytes = 0;
};

} // namespace torvane
