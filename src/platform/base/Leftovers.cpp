// SPDX-License-Identifier: MIT
// Finding and removing leftovers.
#include "Leftovers.h"
#include "AppendNote.h"
#include "Paths.h"

#include <QByteArrayList>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/file.h>

namespace torvane::Leftovers {

namespace {
bool isNote(QByteArrayView name) { return HiddenFile::isOfKind(HiddenFile::appendNote, name); }

QByteArrayList candidates(const QByteArray& path) {
    QByteArrayList names;
    const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(path.constData()), closedir);
    if (!dir) return names;
    while (const dirent* entry = readdir(dir.get())) {
        const QByteArrayView name(entry->d_name, static_cast<qsizetype>(std::strlen(entry->d_name)));
        if (isNote(name) || HiddenFile::isOfKind(HiddenFile::replacement, name)) names << name.toByteArray();
    }
    return names;
}

void remove(const Folder& folder, const QByteArray& name) {
    const Handle file(
        openat(folder.number(), name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (!file.isOpen() || !S_ISREG(infoOf(file).st_mode)) return;
    // A run that is still alive holds a lock on its files.
    if (flock(file.number(), LOCK_EX | LOCK_NB) != 0) return;
    if (isNote(name)) {
        const auto note = AppendNote::read(file);
        if (note && !AppendNote::recover(folder, *note)) return;
    }
    folder.unlink(name);
}
} // namespace

void sweep(const QString& path) {
    const QByteArray real = Paths::real(path);
    const QByteArrayList names = candidates(real);
    if (names.isEmpty()) return;
    ignoring([&] {
        const Folder folder(real);
        for (const QByteArray& name : names) ignoring([&] { remove(folder, name); });
    });
}

} // namespace torvane::Leftovers
