// SPDX-License-Identifier: MIT
// In which language message boxes and file dialogs speak: that of the current language file.
#pragma once

#include "Texts.h"

namespace torvane {

class DialogLanguage {
public:
    DialogLanguage(const Globals& globals, const LanguageTables& language)
        : m_globals(globals), m_info(language, "FileInfo"), m_dialogs(language, "Dialogs") {}

    /// The locale that the file names in ("FileInfo", "locale"), such as "pt_BR". For a file without that
    /// key, "es" or "ca" if it has the name of the program's own Spanish or Catalan one, else "en".
    QString locale() const;
    /// A text of the section "Dialogs"; empty if the file lacks it.
    QString text(const char* key) const { return m_dialogs(key); }

private:
    const Globals& m_globals;
    Texts m_info;
    Texts m_dialogs;
};

} // namespace torvane
