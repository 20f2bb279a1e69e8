// SPDX-License-Identifier: MIT
// Keeping and reading the version file.
#include "VersionFile.h"
#include "platform/base/IniText.h"
#include "platform/base/SafeFile.h"

namespace torvane {

namespace {
constexpr qsizetype longestShown = 40;
} // namespace

void VersionFile::write(const QByteArray& body) const { SafeFile::replace(path(), body + "\r\n"); }

QString VersionFile::lastVersion() const {
    return IniText::read(QStringLiteral("Torvane"), QStringLiteral("LastVersion"), path());
}

QString VersionFile::shown(const QString& version) {
    return version.size() <= longestShown ? version : version.first(longestShown) + QChar(0x2026);
}

} // namespace torvane
