// SPDX-License-Identifier: MIT
// Look-ups in the current language file.
#include "LanguageTables.h"

namespace torvane {

LanguageTables::LanguageTables(const Globals& globals, Reader reader)
    : m_globals(globals), m_reader(std::move(reader)) {}

QString LanguageTables::LangText(const QString& section, const QString& key) const {
    return m_reader(section, key, m_globals.LanguageFile);
}

QString LanguageTables::LangTextCopy(const QString& section, const QString& key) const {
    return LangText(section, key);
}

} // namespace torvane
