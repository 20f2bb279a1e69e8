// SPDX-License-Identifier: MIT
// Whole-file replacement by a synced temporary file and a rename.
#include "SafeFile.h"
#include "Paths.h"
#include "RuntimeFailure.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace torvane::SafeFile {

namespace {
constexpr size_t copyBlock = 1 << 20;
constexpr int mostLinks = 40; // as many as the kernel follows

[[noreturn]] void failWithErrno() { throw RuntimeFailure::fromErrno(errno); }

// An open handle that closes itself.
struct Handle {
    int number;
    explicit Handle(int opened) : number(opened) {
        if (number < 0) failWithErrno();
    }
    ~Handle() { close(number); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
};

QByteArray folderOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.first(slash);
}

// The place that a rename has to hit: behind all symbolic links, if there are any. A link may lead to a
// file that is still to be made.
QByteArray behindLinks(QByteArray path) {
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length = readlink(path.constData(), target.data(), target.size());
        if (length < 0) return path;
        const QByteArray next(target.data(), static_cast<qsizetype>(length));
        path = next.startsWith('/') ? next : folderOf(path) + '/' + next;
    }
    throw RuntimeFailure::fromErrno(ELOOP);
}

// A name that no list shows; it is not lengthened with the file's own name, which may be at the limit.
QByteArray temporaryPattern(const QByteArray& path) { return folderOf(path) + "/.torvane-XXXXXX"; }

void writeAll(int handle, const char* bytes, size_t count) {
    while (count > 0) {
        const ssize_t written = write(handle, bytes, count);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) failWithErrno();
        bytes += written;
        count -= static_cast<size_t>(written);
    }
}

// Not every folder can be synced (some may be written but not read, some network file systems have no
// such call). The rename stands all the same, and a failure would say that the old file is still there.
void syncFolder(const QByteArray& folder) {
    const int handle = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
}

mode_t newFileMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// The temporary file of one replacement; gone at the end of its scope unless it was renamed.
class Replacement {
public:
    explicit Replacement(const QByteArray& target)
        : m_target(target), m_name(temporaryPattern(target)), m_file(mkostemp(m_name.data(), O_CLOEXEC)) {}
    ~Replacement() {
        if (!m_name.isEmpty()) unlink(m_name.constData());
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    int handle() const { return m_file.number; }

    void commit() {
        struct stat former {};
        const bool replaces = stat(m_target.constData(), &former) == 0;
        // Only root may give a file away; for everybody else the owner is right already.
        if (replaces && fchown(m_file.number, former.st_uid, former.st_gid) != 0 && errno != EPERM) {
            failWithErrno();
        }
        if (fchmod(m_file.number, replaces ? former.st_mode & 07777 : newFileMode()) != 0) failWithErrno();
        if (fsync(m_file.number) != 0) failWithErrno();
        if (rename(m_name.constData(), m_target.constData()) != 0) failWithErrno();
        m_name.clear();
        syncFolder(folderOf(m_target));
    }

private:
    QByteArray m_target;
    QByteArray m_name;
    Handle m_file;
};

void refuseUnlessWritable(const QByteArray& target) {
    struct stat info {};
    if (stat(target.constData(), &info) != 0) return;
    // A rename would put a file in the place of a device or a pipe.
    if (!S_ISREG(info.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    if (access(target.constData(), W_OK) != 0) failWithErrno();
}

void refuseSameFile(int source, const QByteArray& target) {
    struct stat a {};
    struct stat b {};
    if (fstat(source, &a) != 0) failWithErrno();
    if (!S_ISREG(a.st_mode)) throw RuntimeFailure(RuntimeFailure::pathAccess);
    const bool same = stat(target.constData(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
    if (same) throw RuntimeFailure(RuntimeFailure::permissionDenied);
}
} // namespace

void replace(const QString& path, const QByteArray& bytes) {
    const QByteArray target = behindLinks(Paths::real(path));
    refuseUnlessWritable(target);
    Replacement replacement(target);
    writeAll(replacement.handle(), bytes.constData(), static_cast<size_t>(bytes.size()));
    replacement.commit();
}

void copy(const QString& sourcePath, const QString& targetPath) {
    const Handle source(open(Paths::real(sourcePath).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    const QByteArray target = behindLinks(Paths::real(targetPath));
    refuseSameFile(source.number, target);
    refuseUnlessWritable(target);
    Replacement replacement(target);
    QByteArray block(copyBlock, Qt::Uninitialized);
    for (;;) {
        const ssize_t got = read(source.number, block.data(), copyBlock);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) failWithErrno();
        if (got == 0) break;
        writeAll(replacement.handle(), block.constData(), static_cast<size_t>(got));
    }
    replacement.commit();
}

RestorePoint::RestorePoint(const QString& path) : m_path(behindLinks(Paths::real(path))) {
    // mkostemp finds a free name; the link then takes the place of the empty file.
    QByteArray name = temporaryPattern(m_path);
    const int handle = mkostemp(name.data(), O_CLOEXEC);
    if (handle < 0) return;
    close(handle);
    unlink(name.constData());
    if (link(m_path.constData(), name.constData()) == 0) m_kept = name;
}

RestorePoint::~RestorePoint() {
    if (!m_kept.isEmpty()) unlink(m_kept.constData());
}

void RestorePoint::restore() {
    if (m_kept.isEmpty() || rename(m_kept.constData(), m_path.constData()) != 0) return;
    // Two names of one file make rename(2) do nothing: then the second one is still there.
    unlink(m_kept.constData());
    m_kept.clear();
}

} // namespace torvane::SafeFile
