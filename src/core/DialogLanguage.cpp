// SPDX-License-Identifier: MIT
// The locale of a language file.
#include "DialogLanguage.h"
#include "platform/base/Paths.h"

namespace torvane {

QString DialogLanguage::locale() const {
    const QString name = Paths::bareName(m_globals.LanguageFile);
    const auto is = [&](const char* own) {
        return name.compare(QLatin1String(own), Qt::CaseInsensitive) == 0;
    };
    const char* byName = is("lang_esp.tvl") ? "es" : is("lang_cat.tvl") ? "ca" : "en";
    return m_info("locale", QString::fromLatin1(byName));
}

} // namespace torvane
