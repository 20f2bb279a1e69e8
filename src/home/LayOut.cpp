// SPDX-License-Identifier: MIT
// Deciding file by file.
#include "LayOut.h"
#include "ContentSum.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"
#include "platform/base/SafeFile.h"

#include <QElapsedTimer>
#include <QVersionNumber>
#include <array>
#include <sys/file.h>
#include <thread>

namespace torvane {

namespace {
// Folders that the program expects even if they are empty.
constexpr std::array expectedFolders = {
    "roms", "roms/data/screenshots", "ziptemp", "emuladores", "data/lang", "data/tray"};

constexpr std::chrono::milliseconds betweenLooks(10);

QByteArray folderOf(const QByteArray& path) {
    return path.first(std::max<qsizetype>(path.lastIndexOf('/'), 0));
}

QVersionNumber numberOf(const QByteArray& version) {
    return QVersionNumber::fromString(QString::fromLatin1(version));
}

// Whether there is something of that name, and it certainly is no folder.
bool isNoFolder(const QByteArray& name) {
    struct stat info {};
    if (lstat(name.constData(), &info) != 0) return false;
    if (stat(name.constData(), &info) == 0) return !S_ISDIR(info.st_mode);
    if (errno != ENOENT && errno != ENOTDIR && errno != ELOOP) failWithErrno();
    return true;
}

// A file system without modes has nothing to preserve.
void giveMode(const Handle& file, mode_t mode) {
    if (fchmod(file.number(), mode) != 0 && errno != ENOSYS && errno != ENOTSUP) failWithErrno();
}
} // namespace

void LayOut::attempt(const QByteArray& path, const std::function<void()>& action) {
    try {
        aboutFile(Paths::spelled(path), action);
    } catch (const RuntimeFailure& failure) {
        m_report.failures.push_back(failure);
    }
}

// The user may have renamed a folder so that its name differs in case: the program finds it, and so must
// this.
QByteArray LayOut::target(const QByteArray& path) const {
    return Paths::realToCreate(Paths::spelled(m_folder + '/' + path));
}

bool LayOut::isNewer() const {
    return !m_record.version.isEmpty() && !m_tree.version.isEmpty() &&
           numberOf(m_record.version) > numberOf(m_tree.version);
}

bool LayOut::isPending(const QByteArray& path, const Source& source) const {
    const auto known = m_record.files.find(path);
    return known == m_record.files.end() || known->second.laid != source.sum ||
           known->second.mode != source.mode;
}

bool LayOut::isDone() const {
    return (m_tree.version.isEmpty() || m_record.version == m_tree.version) &&
           std::all_of(expectedFolders.begin(), expectedFolders.end(),
                       [&](const char* folder) {
                           return File::isFolder(Paths::spelled(target(folder))) || isBarred(folder);
                       }) &&
           std::none_of(m_tree.files.begin(), m_tree.files.end(),
                        [&](const auto& file) { return isPending(file.first, file.second); });
}

LayOut::Report LayOut::run(std::chrono::milliseconds longestWait) {
    attempt(m_folder, [&] {
        m_record = TreeRecord::of(m_folder);
        if (isNewer() || isDone()) return;
        Folder::make(m_folder);
        const Handle lock = locked(longestWait);
        m_record = TreeRecord::of(m_folder); // another run may have been faster
        if (!isNewer()) bringUpToDate();
    });
    return std::move(m_report);
}

// Some network file systems have no locks, and a folder that can't be read can't be locked: then without. The
// wait ends, because whoever holds the lock may have been stopped.
Handle LayOut::locked(std::chrono::milliseconds longestWait) const {
    Handle folder(open(m_folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen() && errno == ENOTDIR) {
        throw RuntimeFailure(RuntimeFailure::pathNotFound, RuntimeFailure::Reason::noFolder);
    }
    QElapsedTimer waited;
    waited.start();
    while (flock(folder.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        if (waited.hasExpired(longestWait.count())) {
            throw RuntimeFailure(RuntimeFailure::permissionDenied, RuntimeFailure::Reason::inUse);
        }
        std::this_thread::sleep_for(betweenLooks);
    }
    return folder;
}

// The record is written last: until then, a file that is in place already counts as laid out by its content.
void LayOut::bringUpToDate() {
    makeFolders();
    for (const auto& [path, source] : m_tree.files) {
        if (!isPending(path, source)) continue;
        attempt(target(path), [&, &path = path, &source = source] { settle(path, source); });
    }
    finishCreating();
    if (!m_tree.version.isEmpty()) m_record.version = m_tree.version;
    attempt(m_folder + '/' + TreeRecord::file, [this] { m_record.store(m_folder); });
}

void LayOut::makeFolders() {
    for (const char* folder : expectedFolders) {
        attempt(m_folder + '/' + folder, [&] {
            if (!isBarred(folder)) Folder::make(Paths::real(Paths::spelled(m_folder + '/' + folder)));
        });
    }
}

// Whether a folder can't be there, because a name on the way to it is no folder: a file, or a link that leads
// nowhere.
bool LayOut::isBarred(const QByteArray& folder) const {
    if (File::isFolder(Paths::spelled(target(folder)))) return false;
    for (qsizetype end = folder.indexOf('/');; end = folder.indexOf('/', end + 1)) {
        const QByteArray name = target(end < 0 ? folder : folder.first(end));
        if (isNoFolder(name)) return true;
        if (end < 0) return false;
    }
}

void LayOut::settle(const QByteArray& path, const Source& source) {
    LaidFile& known = m_record.files[path];
    const LaidFile before = known;
    known = {before.laid, source.sum, source.size, before.mode};
    struct stat info {};
    if (lstat(target(path).constData(), &info) == 0) {
        // Nobody has to read an unknown file of another length.
        const bool isOfUser = before.laid.isEmpty() && info.st_size != source.size;
        S_ISREG(info.st_mode) && !isOfUser ? settleFile(path, source, before) : void(++m_report.kept);
    } else if (const int error = errno; isBarred(folderOf(path))) {
        ++m_report.kept;
    } else if (error != ENOENT) {
        throw RuntimeFailure::fromErrno(error);
    } else {
        before.laid.isEmpty() ? create(path, source) : void(++m_report.kept);
    }
    known.mode = source.mode;
}

void LayOut::settleFile(const QByteArray& path, const Source& source, const LaidFile& before) {
    const File file(Paths::spelled(target(path)));
    const QByteArray present = ContentSum::of(file.handle());
    if (present == source.sum) {
        if (present == before.laid) giveMode(file.handle(), source.mode);
        m_record.files[path].laid = present;
    } else if (present == before.laid) {
        update(path, source, before);
    } else {
        ++m_report.kept;
    }
}

// False if the source is missing or is not what the tree says: a package is being upgraded, or the tree is
// that of another home, whose user has changed the file.
bool LayOut::readSource(const Source& source, QByteArray& bytes) {
    try {
        bytes = File::contentOf(Paths::spelled(source.path));
    } catch (const RuntimeFailure& failure) {
        if (failure.number() != RuntimeFailure::fileNotFound) throw;
        bytes.clear();
    }
    if (ContentSum::of(bytes) == source.sum) return true;
    m_report.missing.append(source.path);
    return false;
}

void LayOut::create(const QByteArray& path, const Source& source) {
    QByteArray bytes;
    if (!readSource(source, bytes)) return;
    m_creating.append(path);
    m_new.add(target(path), bytes, source.mode);
}

// The mode comes first: a run that is cut off in between finds the old content, and goes on from there.
void LayOut::update(const QByteArray& path, const Source& source, const LaidFile& before) {
    QByteArray bytes;
    if (!readSource(source, bytes)) return;
    const SafeFile::Change change(Paths::spelled(target(path)));
    if (ContentSum::of(change.file()) != before.laid) failAsChanged();
    if (source.mode != before.mode) giveMode(change.file(), source.mode);
    change.commit({bytes});
    m_record.files[path].laid = source.sum;
    ++m_report.updated;
}

void LayOut::finishCreating() {
    const auto results = m_new.finish();
    for (size_t i = 0; i < results.size(); ++i) {
        LaidFile& file = m_record.files[m_creating[static_cast<qsizetype>(i)]];
        if (results[i].failure) {
            m_report.failures.push_back(*results[i].failure);
        } else if (results[i].isPlaced) {
            file.laid = file.sum;
            ++m_report.created;
        } else {
            ++m_report.kept; // somebody else has just made it
        }
    }
}

} // namespace torvane
