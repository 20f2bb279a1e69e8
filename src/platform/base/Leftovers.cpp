// SPDX-License-Identifier: MIT
// Finding and removing leftovers.
#include "Leftovers.h"
#include "Paths.h"
#include "TailNote.h"

#include <QByteArrayList>
#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/file.h>

namespace torvane::Leftovers {

namespace {
QByteArrayList candidates(const QByteArray& path) {
    QByteArrayList names;
    const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(path.constData()), closedir);
    if (!dir) return names;
    while (const dirent* entry = readdir(dir.get())) {
        const QByteArrayView name(entry->d_name, static_cast<qsizetype>(std::strlen(entry->d_name)));
        if (TailNote::isName(name) || HiddenFile::isOfKind(HiddenFile::replacement, name))
            names << name.toByteArray();
    }
    return names;
}

// Tries each: one that can't be restored now must not keep the others from it.
bool areRecovered(const Folder& folder, const std::optional<TailNote::Changes>& changes) {
    if (!changes) return true;
    const auto failed = std::count_if(changes->begin(), changes->end(), [&folder](const TailChange& change) {
        return !TailNote::recover(folder, change);
    });
    return failed == 0;
}

void remove(const Folder& folder, const QByteArray& name) {
    const Handle file(
        openat(folder.number(), name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    if (!file.isOpen() || !S_ISREG(infoOf(file).st_mode)) return;
    // A run that is still alive holds a lock on its files.
    if (flock(file.number(), LOCK_EX | LOCK_NB) != 0) return;
    if (TailNote::isName(name) && !areRecovered(folder, TailNote::read(file, name))) return;
    folder.unlink(name);
}
} // namespace

void sweep(const QString& path) {
    const QByteArray real = Paths::real(path);
    const QByteArrayList names = candidates(real);
    // Where a note can't be removed, nothing else is done by it, either.
    if (names.isEmpty() || access(real.constData(), W_OK | X_OK) != 0) return;
    ignoring([&] {
        const Folder folder(real);
        for (const QByteArray& name : names) ignoring([&] { remove(folder, name); });
    });
}

} // namespace torvane::Leftovers
