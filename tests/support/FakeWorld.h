// SPDX-License-Identifier: MIT
// The environment of a program under test: fakes for everything outside, and a program folder.
#pragma once

#include "FakeDesktop.h"

namespace torvane {

/// A program folder with the real language files and web lists and an empty library, on a fake desktop.
struct FakeWorld : FakeDesktop {
    FakeWorld() {
        // The program would make it for its user alone, and some tests are another user for a moment.
        folder.makeFolder(QStringLiteral("config/Torvane"));
        folder.makeFolder(QStringLiteral("roms"));
        folder.makeFolder(QStringLiteral("data/lang"));
        folder.makeFolder(QStringLiteral("data/tray"));
        for (const char* name :
             {"lang/lang_esp.tvl", "lang/lang_cat.tvl", "lang/lang_eng.tvl", "url.dat", "url_perso.dat"}) {
            const QString path = QStringLiteral("/data/") + QLatin1String(name);
            QFile::copy(QStringLiteral(TORVANE_TREE_DIR) + path, folder.path() + path);
        }
        folder.write(QStringLiteral("emuladores/emus.dat"), "mGBA#\\mgba.sh\r\n");
    }

    QString appPath() const { return folder.path(); }
    QString setting(const char* key) const {
        return settings.GetSetting(QStringLiteral("Torvane"), QStringLiteral("Config"),
                                   QString::fromLatin1(key), QStringLiteral("(absent)"));
    }
    void setSetting(const char* key, const QString& value) {
        settings.SaveSetting(QStringLiteral("Torvane"), QStringLiteral("Config"), QString::fromLatin1(key),
                             value);
    }
    void useLanguage(const char* code) {
        setSetting("Language",
                   appPath() + QStringLiteral("\\data\\lang\\lang_%1.tvl").arg(QLatin1String(code)));
    }
};

} // namespace torvane
