// SPDX-License-Identifier: MIT
// The folder of language files, and how files get into it and out of it.
#pragma once

#include "core/Globals.h"

namespace torvane::LanguageFiles {

/// The folder, spelled, without trailing separator.
QString folder(const Globals& globals);

/// Copies a file (spelled path) into the folder under its bare name; replaces one of just that name. Fails as
/// SafeFile::copy does, with the folder as it was: also if the file is the one that it would replace.
void add(const Globals& globals, const QString& path);

/// Deletes a file (spelled path). Fails with the number of the system's error, and never deletes one whose
/// name differs in case.
void remove(const QString& path);

} // namespace torvane::LanguageFiles
