// SPDX-License-Identifier: MIT
// A second program that works on the same file: a process of its own, which does errands in turn. The caller
// works out what the file must become.
#pragma once

#include "Bell.h"
#include "Shared.h"
#include "Workshop.h"

#include <array>
#include <atomic>

namespace torvane::faults {

enum class Deed {
    none,
    rewrite,         ///< writes the new version over the old one, in place
    rewriteFromZero, ///< the same, but truncates the file first
    beginRewriting,  ///< opens the file, writes all but the end, and keeps it open
    beginFromZero,   ///< the same after truncating it
    endRewriting,    ///< writes the end and closes it
    renameAway,      ///< gives the file another name
    replace,         ///< puts another file in its place
    remove,
};
const char* nameOf(Deed deed);
/// Where the end of a version begins: it is shorter than a tag line.
inline qsizetype endOf(const QByteArray& version) { return version.size() - 100; }

struct Errand {
    Deed deed = Deed::none;
    int version = 0;           ///< the index of the version to write
    int delayMicroseconds = 0; ///< before it begins
};

class OtherProgram {
public:
    static constexpr size_t mostErrands = 2;

    /// Starts the process. It will work on `file`, rename it to `away`, and write these versions.
    OtherProgram(std::string file, std::string away, std::vector<QByteArray> versions);
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    /// Sets the errands.
    void prepare(const std::array<Errand, mostErrands>& errands);
    /// Lets it do the first `count` errands, at once.
    void let(int count) {
        m_desk->wanted = count;
        m_desk->work.ring();
    }
    /// Waits until the first `count` errands are done; false if they are not after that many milliseconds.
    bool waitFor(int count, int milliseconds) const;

private:
    struct Desk {
        std::array<Errand, mostErrands> errands;
        std::atomic<int> wanted{0};
        std::atomic<int> done{0};
        std::atomic<bool> isOver{false};
        Bell work;     ///< rung for the process when there is something new for it
        Bell progress; ///< rung by it when an errand is done
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
