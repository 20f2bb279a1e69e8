// SPDX-License-Identifier: MIT
// The texts of the windows, looked up in the current language file. Nothing is cached: a new language
// takes effect at the next look-up.
#pragma once

#include "Globals.h"

#include <functional>

namespace torvane {

class LanguageTables {
public:
    /// Reads one value: section, key, spelled path of the file. Empty for anything missing.
    using Reader = std::function<QString(const QString&, const QString&, const QString&)>;

    /// The reader is handed in, since it lives on a window that the first look-up creates.
    LanguageTables(const Globals& globals, Reader reader);

    /// The text of a key in the current language file; empty if file, section or key is missing.
    QString LangText(const QString& section, const QString& key) const;
    /// The same text; kept apart because callers use both names.
    QString LangTextCopy(const QString& section, const QString& key) const;

private:
    const Globals& m_globals;
    Reader m_reader;
};

} // namespace torvane
