// SPDX-License-Identifier: MIT
// Adding and removing language files.
#include "LanguageFiles.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"
#include "platform/base/SafeFile.h"

namespace torvane::LanguageFiles {

QString folder(const Globals& globals) { return globals.AppPath + QStringLiteral("\\data\\lang"); }

void add(const Globals& globals, const QString& path) {
    SafeFile::copy(path, folder(globals) + QLatin1Char('\\') + Paths::bareName(path));
}

void remove(const QString& path) { File::removeExactly(path); }

} // namespace torvane::LanguageFiles
