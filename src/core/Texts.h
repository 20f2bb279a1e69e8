// SPDX-License-Identifier: MIT
// The texts of one section of the language file.
#pragma once

#include "LanguageTables.h"

namespace torvane {

class Texts {
public:
    /// `section` has to outlive the object: a literal.
    Texts(const LanguageTables& language, const char* section) : m_language(language), m_section(section) {}

    /// The text of a key in the current language file; empty if there is none.
    QString operator()(const char* key) const {
        return m_language.LangText(QString::fromLatin1(m_section), QString::fromLatin1(key));
    }
    /// The same; `absent` if the file lacks the key or leaves it empty. For keys that came later than the
    /// language files that users have made.
    QString operator()(const char* key, const QString& absent) const {
        const QString text = (*this)(key);
        return text.isEmpty() ? absent : text;
    }

private:
    const LanguageTables& m_language;
    const char* m_section;
};

} // namespace torvane
