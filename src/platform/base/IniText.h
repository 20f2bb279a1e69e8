// SPDX-License-Identifier: MIT
// Texts in the program's own INI files, which are in code page 1252.
#pragma once

#include <QString>

namespace torvane::IniText {

/// The text of a value in a file (spelled path); empty if the file, section or key is missing.
QString read(const QString& section, const QString& key, const QString& file);

} // namespace torvane::IniText
