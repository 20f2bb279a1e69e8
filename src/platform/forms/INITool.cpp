// SPDX-License-Identifier: MIT
// Reading of INI files in code page 1252.
#include "INITool.h"
#include "../base/CodePage1252.h"
#include "../base/IniFile.h"

namespace torvane {

QString INITool::Read(const QString& section, const QString& key, const QString& file) const {
    const auto bytes = IniFile::value(file, CodePage1252::toBytes(section), CodePage1252::toBytes(key));
    return bytes ? CodePage1252::fromBytes(*bytes) : QString();
}

} // namespace torvane
