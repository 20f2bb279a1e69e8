// SPDX-License-Identifier: MIT
// Look-ups in the current language file.
#include "LanguageTables.h"
#include "platform/base/IniText.h"

namespace torvane {

QString LanguageTables::LangText(const QString& section, const QString& key) const {
    return IniText::read(section, key, m_globals.LanguageFile);
}

QString LanguageTables::LangTextCopy(const QString& section, const QString& key) const {
    return LangText(section, key);
}

} // namespace torvane
