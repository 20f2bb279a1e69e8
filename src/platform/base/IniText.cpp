// SPDX-License-Identifier: MIT
// INI values as text.
#include "IniText.h"
#include "CodePage1252.h"
#include "IniFile.h"

namespace torvane::IniText {

QString read(const QString& section, const QString& key, const QString& file) {
    const auto bytes = IniFile::value(file, CodePage1252::toBytes(section), CodePage1252::toBytes(key));
    return bytes ? CodePage1252::fromBytes(*bytes) : QString();
}

} // namespace torvane::IniText
