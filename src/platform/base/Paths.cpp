// SPDX-License-Identifier: MIT
// Conversion between spelled and real paths.
#include "Paths.h"
#include "NativeText.h"

#include <QByteArrayList>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace torvane::Paths {

namespace {
bool exists(const QByteArray& path) {
    struct stat info {};
    return lstat(path.constData(), &info) == 0;
}

// The entry of a folder with this name in any case; empty if there is none.
QByteArray entryLike(const QByteArray& folder, const QByteArray& name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(folder.constData()), closedir);
    if (!dir) return {};
    const QString wanted = NativeText::folded(NativeText::fromNative(name));
    QByteArray found;
    while (const dirent* entry = readdir(dir.get())) {
        const QByteArray candidate(entry->d_name);
        // The smallest name wins, so that the result does not depend on readdir order.
        if (NativeText::folded(NativeText::fromNative(candidate)) == wanted &&
            (found.isEmpty() || candidate < found)) {
            found = candidate;
        }
    }
    return found;
}
} // namespace

QString applicationFolder() {
    QByteArray target(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", target.data(), static_cast<size_t>(target.size()));
    if (length <= 0) return QStringLiteral(".");
    target.truncate(length);
    target.truncate(target.lastIndexOf('/'));
    return spelled(target);
}

QByteArray real(const QString& path) {
    QString slashed = path;
    // No name contains a zero character, and a system call would end the path there.
    slashed.replace(QLatin1Char('\\'), QLatin1Char('/')).replace(QChar(0), QLatin1Char('?'));
    QByteArray whole = NativeText::toNative(slashed);
    if (whole.isEmpty() || exists(whole)) return whole;
    QByteArray found = whole.startsWith('/') ? "" : ".";
    bool lost = false;
    for (const QByteArray& piece : whole.split('/')) {
        if (piece.isEmpty()) continue;
        QByteArray next = found + '/' + piece;
        if (!lost && !exists(next)) {
            const QByteArray like = entryLike(found.isEmpty() ? QByteArray("/") : found, piece);
            lost = like.isEmpty();
            if (!lost) next = found + '/' + like;
        }
        found = next;
    }
    return found;
}

QByteArray realToCreate(const QString& path) {
    QString name = bareName(path);
    QByteArray folder = real(path.chopped(name.size()));
    if (!folder.isEmpty() && !folder.endsWith('/')) folder += '/';
    return folder + NativeText::toNative(name.replace(QChar(0), QLatin1Char('?')));
}

QString bareName(const QString& spelled) {
    const auto isSeparator = [](QChar c) { return c == QLatin1Char('\\') || c == QLatin1Char('/'); };
    qsizetype start = spelled.size();
    while (start > 0 && !isSeparator(spelled[start - 1])) --start;
    return spelled.sliced(start);
}

QString spelled(QByteArrayView path) { return NativeText::fromNative(path); }

} // namespace torvane::Paths
