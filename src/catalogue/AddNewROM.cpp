// SPDX-License-Identifier: MIT
// Imports into the library.
#include "AddNewROM.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"

#include <utility>

namespace torvane {

void SetFileAttributes(const QString& path) {
    ignoring([&] {
        const QByteArray real = Paths::real(path);
        // By way of a handle that gives no access, so that no link can come in between.
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
    m_copies = std::make_unique<FileCopies>(m_globals.AppPath + QStringLiteral("\\roms"), std::move(serve));
}

bool AddNewROM::AddRomToLibrary(const QString& source, const QString& name) {
    try {
        return m_copies->add(source, name);
    } catch (const RuntimeFailure&) {
        ignoring([this] { finish(); });
        throw;
    }
}

void AddNewROM::finish() { m_copies->finish(); }

int AddNewROM::deleteSources() {
    int count = 0;
    if (!m_copies) return count;
    for (const CopyRecord& record : m_copies->records()) {
        if (!record.coversSource()) continue;
        File::remove(Paths::spelled(record.source));
        ++count;
    }
    return count;
}

bool AddNewROM::deleteSource(const QString& path) {
    if (!m_copies || m_copies->records().empty()) return false;
    if (!m_copies->records().front().covers(Paths::real(path))) return false;
    File::remove(path);
    return true;
}

} // namespace torvane
