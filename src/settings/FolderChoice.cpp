// SPDX-License-Identifier: MIT
// Proposing and cutting paths.
#include "FolderChoice.h"
#include "platform/base/File.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"

namespace torvane::FolderChoice {

const QString marker = QStringLiteral("Este Directorio");

namespace {
QString closed(const QString& folder) {
    const bool isClosed = folder.endsWith(QLatin1Char('\\')) || folder.endsWith(QLatin1Char('/'));
    return isClosed ? folder : folder + QLatin1Char('\\');
}

// File dialogs know names as text, and lose the bytes that are no UTF-8.
bool canBeShown(const QString& folder) {
    const QByteArray bytes = Paths::real(folder);
    return QString::fromUtf8(bytes).toUtf8() == bytes;
}
} // namespace

QString proposal(const QString& folder, const QString& home) {
    const bool isUsable = File::isFolder(folder) && canBeShown(folder);
    return closed(isUsable ? folder : home) + marker;
}

QString folderOf(const QString& path) {
    const qsizetype at = path.indexOf(marker);
    return at < 0 ? path : path.first(at);
}

QString shown(const QString& path) { return QString::fromUtf8(NativeText::toNative(path)); }

} // namespace torvane::FolderChoice
