// SPDX-License-Identifier: MIT
// Imports games and deletes their originals.
#include "AddNewROM.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"

#include <utility>

namespace torvane {

void SetFileAttributes(const QString& path) {
    ignoring([&] {
        const QByteArray real = Paths::real(path);
        // Via O_PATH, so that no symlink can be swapped in before chmod.
        const Handle file = opened(open(real.constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC));
        const struct stat info = infoOf(file);
        if (!S_ISREG(info.st_mode) || (info.st_mode & S_IWUSR) != 0) return;
        const QByteArray name = "/proc/self/fd/" + QByteArray::number(file.number());
        if (chmod(name.constData(), (info.st_mode & 07777) | S_IWUSR) != 0) failWithErrno();
    });
}

QString folderInFront(const QString& path, const QString& mark) {
    const qsizetype at = mark.isEmpty() ? -1 : path.indexOf(mark);
    return at < 0 ? path : path.first(at);
}

void AddNewROM::begin(std::function<void()> serve) {
    m_inLibrary.clear();
    m_copies = std::make_unique<FileCopies>(m_globals.libraryFolder(), std::move(serve));
}

bool AddNewROM::AddRomToLibrary(const QString& source, const QString& name) {
    try {
        const bool isOther = m_copies->add(source, name);
        if (!isOther) m_inLibrary.append(source);
        return isOther;
    } catch (const RuntimeFailure&) {
        ignoring([this] { finish(); });
        throw;
    }
}

void AddNewROM::finish() { m_copies->finish(); }

Deletion AddNewROM::deleteSources() {
    Deletion deletion;
    if (!m_copies) return deletion;
    for (const QString& path : m_inLibrary) deletion.kept.push_back({path, KeptSource::isInLibrary});
    for (const CopyRecord& record : m_copies->records()) {
        const QString path = Paths::spelled(record.source);
        if (!File::exists(path)) continue;
        if (!record.coversSource()) {
            deletion.kept.push_back({path, KeptSource::hasChanged});
            continue;
        }
        try {
            File::remove(path);
            ++deletion.gone;
        } catch (const RuntimeFailure& failure) {
            deletion.kept.push_back({path, KeptSource::failed, failure});
        }
    }
    return deletion;
}

bool AddNewROM::deleteSource(const QString& path) {
    if (!m_copies || m_copies->records().empty()) return false;
    if (!m_copies->records().front().covers(Paths::real(path))) return false;
    File::remove(path);
    return true;
}

KeptSource AddNewROM::kept(const QString& path) const {
    struct stat file {};
    struct stat copy {};
    const bool hasCopy = m_copies && !m_copies->records().empty();
    const bool isCopy = hasCopy && stat(Paths::real(path).constData(), &file) == 0 &&
                        stat(m_copies->records().front().target.constData(), &copy) == 0 &&
                        file.st_dev == copy.st_dev && file.st_ino == copy.st_ino;
    return {path, isCopy ? KeptSource::isInLibrary : KeptSource::hasChanged, {}};
}

} // namespace torvane
