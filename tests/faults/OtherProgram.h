// SPDX-License-Identifier: MIT
// A second program that is at work on the same file: a process of its own, which does errands one after the
// other. What becomes of the file is worked out by whoever gives them.
#pragma once

#include "Shared.h"
#include "Workshop.h"

#include <array>
#include <atomic>

namespace torvane::faults {

enum class Deed {
    none,
    rewrite,         ///< writes the new version over the old one, in place
    rewriteFromZero, ///< empties the file first
    beginRewriting,  ///< opens it, writes all but the end, and keeps it open
    beginFromZero,   ///< the same after emptying it
    endRewriting,    ///< writes the end and closes it
    renameAway,      ///< gives the file another name
    replace,         ///< puts another file in its place
    remove,
};
const char* nameOf(Deed deed);
/// Where the end of a version begins: less is left of it than a tag line is long.
inline qsizetype endOf(const QByteArray& version) { return version.size() - 100; }

struct Errand {
    Deed deed = Deed::none;
    int version = 0;           ///< which of the versions it writes
    int delayMicroseconds = 0; ///< before it begins
};

class OtherProgram {
public:
    static constexpr size_t mostErrands = 2;

    /// Starts the process. It will work on the file, rename it to `away`, and write these versions.
    OtherProgram(std::string file, std::string away, std::vector<QByteArray> versions);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Says what is to be done from now on.
    void prepare(const std::array<Errand, mostErrands>& errands);
    /// Lets it do the first `count` errands, at once.
    void let(int count) { m_desk->wanted = count; }
    /// Waits until the first `count` errands are done; false if they are not after that time.
    bool waitFor(int count, int milliseconds) const;

private:
    struct Desk {
        std::array<Errand, mostErrands> errands;
        std::atomic<int> wanted{0};
        std::atomic<int> done{0};
        std::atomic<bool> isOver{false};
    };

    void work();
    void doErrand(const Errand& errand);
    void write(const QByteArray& bytes, qsizetype from, qsizetype to) const;
    void put(const QByteArray& bytes) const;

    std::string m_file, m_away;
    std::vector<QByteArray> m_versions;
    Shared<Desk> m_desk;
    int m_open = -1;
    pid_t m_process = 0;
};

} // namespace torvane::faults
