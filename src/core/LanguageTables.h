// SPDX-License-Identifier: MIT
// The texts of the windows, looked up in the current language file. Nothing is cached: a new language
// takes effect at the next look-up.
#pragma once

#include "Globals.h"

namespace torvane {

class LanguageTables {
public:
    explicit LanguageTables(const Globals& globals) : m_globals(globals) {}

    /// The text of a key in the current language file; empty if file, section or key is missing.
    QString LangText(const QString& section, const QString& key) const;
    /// The same text; kept apart because callers use both names.
    QString LangTextCopy(const QString& section, const QString& key) const;

private:
    const Globals& m_globals;
};

} // namespace torvane
