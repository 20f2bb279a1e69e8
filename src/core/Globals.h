// SPDX-License-Identifier: MIT
// Texts that every window needs. Set once at start, owned by the program, handed on by reference.
#pragma once

#include "Pieces.h"

#include <QString>

namespace torvane {

struct Globals {
    QString AppPath;      ///< the home (see home/Home.h), spelled (see Paths), without trailing separator
    QString VersionText;  ///< major and minor version, such as "1.1"
    QString TitlePrefix;  ///< begins the title line of every window
    QString LanguageFile; ///< spelled path of the language file in use
    QString LanguageName; ///< that language's own name; empty until the application has started
    NameCut names = {};   ///< where the program cuts names of files; the user's choice

    /// Takes the version, such as "1.1" or "1.1.0", and builds the texts that show it.
    void setVersion(const QString& version) {
        VersionText = version.section(QLatin1Char('.'), 0, 1);
        TitlePrefix = QStringLiteral("Torvane ") + VersionText + QStringLiteral(" » ");
    }
    /// The folder of the games, spelled, without trailing separator.
    QString libraryFolder() const { return AppPath + QStringLiteral("\\roms"); }
};

/// The application's name in the settings store, and the section that all its settings are in.
namespace Config {
inline const QString application = QStringLiteral("Torvane");
inline const QString section = QStringLiteral("Config");
} // namespace Config

} // namespace torvane
