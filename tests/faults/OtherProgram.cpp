// SPDX-License-Identifier: MIT
// The errands.
#include "OtherProgram.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace torvane::faults {

namespace {
constexpr qsizetype chunk = 4096; // the size of an editor's buffer

void pass(int microseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(microseconds);
    while (std::chrono::steady_clock::now() < end) sched_yield();
}
} // namespace

const char* nameOf(Deed deed) {
    constexpr std::array<const char*, 9> names = {"nothing",
                                                  "rewrites in place",
                                                  "empties and rewrites",
                                                  "begins to rewrite",
                                                  "empties and begins to rewrite",
                                                  "ends rewriting",
                                                  "renames away",
                                                  "replaces",
                                                  "removes"};
    return names.at(static_cast<size_t>(deed));
}

OtherProgram::OtherProgram(std::string file, std::string away, std::vector<QByteArray> versions)
    : m_file(std::move(file)), m_away(std::move(away)), m_versions(std::move(versions)) {
    std::fflush(stdout);
    m_process = fork();
    if (m_process < 0) throw std::runtime_error("no second process");
    if (m_process > 0) return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    work();
    _exit(0);
}

OtherProgram::~OtherProgram() {
    m_desk->isOver = true;
    m_desk->work.ring();
    while (waitpid(m_process, nullptr, 0) < 0) {
    }
}

void OtherProgram::prepare(const std::array<Errand, mostErrands>& errands) {
    m_desk->wanted = 0;
    m_desk->done = 0;
    m_desk->errands = errands;
}

bool OtherProgram::waitFor(int count, int milliseconds) const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (m_desk->done < count) {
        if (std::chrono::steady_clock::now() > end) return false;
        m_desk->progress.waitUntil(end);
    }
    return true;
}

void OtherProgram::work() {
    while (!m_desk->isOver) {
        const int next = m_desk->done;
        if (next < m_desk->wanted) {
            doErrand(m_desk->errands.at(static_cast<size_t>(next)));
            m_desk->done = next + 1;
            m_desk->progress.ring();
        } else {
            m_desk->work.wait();
        }
    }
}

void OtherProgram::doErrand(const Errand& errand) {
    pass(errand.delayMicroseconds);
    const QByteArray& bytes = m_versions.at(static_cast<size_t>(errand.version));
    const Deed deed = errand.deed;
    const bool empties = deed == Deed::rewriteFromZero || deed == Deed::beginFromZero;
    if (empties || deed == Deed::rewrite || deed == Deed::beginRewriting)
        m_open = open(m_file.c_str(), O_WRONLY | (empties ? O_TRUNC : 0));
    switch (deed) {
    case Deed::none: return;
    case Deed::rewrite:
    case Deed::rewriteFromZero: return write(bytes, 0, bytes.size());
    case Deed::beginRewriting:
    case Deed::beginFromZero: return write(bytes, 0, endOf(bytes));
    case Deed::endRewriting: return write(bytes, endOf(bytes), bytes.size());
    case Deed::renameAway: rename(m_file.c_str(), m_away.c_str()); return;
    case Deed::replace: return put(bytes);
    case Deed::remove: unlink(m_file.c_str()); return;
    }
}

// Writes a range of a version to the open file, and closes it after the last range.
void OtherProgram::write(const QByteArray& bytes, qsizetype from, qsizetype to) const {
    while (m_open >= 0 && from < to) {
        const ssize_t written =
            pwrite(m_open, bytes.constData() + from, static_cast<size_t>(std::min(chunk, to - from)), from);
        if (written <= 0) break;
        from += written;
    }
    if (m_open >= 0 && to == bytes.size()) close(m_open);
}

void OtherProgram::put(const QByteArray& bytes) const {
    const std::string fresh = m_away + ".new";
    const int handle = open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const bool isWhole =
        ::write(handle, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
    close(handle);
    if (isWhole) rename(fresh.c_str(), m_file.c_str());
}

} // namespace torvane::faults
