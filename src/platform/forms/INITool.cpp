// SPDX-License-Identifier: MIT
// Reading of INI files in code page 1252.
#include "INITool.h"
#include "../base/IniText.h"

namespace torvane {

QString INITool::Read(const QString& section, const QString& key, const QString& file) const {
    return IniText::read(section, key, file);
}

} // namespace torvane
