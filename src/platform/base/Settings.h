// SPDX-License-Identifier: MIT
// The user's choices: application, section, key and a text, kept apart from each other and compared
// without regard to case. One INI file per application in the user's configuration folder.
#pragma once

#include <QString>

namespace torvane {

class Settings {
public:
    /// The store below a configuration folder (real path; the desktop's own, $XDG_CONFIG_HOME, as a rule).
    explicit Settings(const QString& configurationFolder);

    /// The stored text; `absent` if there is no such key. Unreadable files count as empty ones.
    QString GetSetting(const QString& application, const QString& section, const QString& key,
                       const QString& absent) const;
    /// Creates or replaces the value at once; fails if it can't be kept.
    void SaveSetting(const QString& application, const QString& section, const QString& key,
                     const QString& value);

    /// The file of an application: `Torvane/Torvane.conf` in the configuration folder for `Torvane`.
    QString fileOf(const QString& application) const;

    /// A stored text as a number, rounded to nearest with half to even; fails with a type mismatch if it
    /// is none and with an overflow if it is outside of 32 bits.
    static int toNumber(const QString& text);
    /// A stored text as a flag: "True" and "False" in any case, or a number, of which 0 alone is false. Fails
    /// as toNumber does.
    static bool toFlag(const QString& text);

private:
    QString m_folder;
};

} // namespace torvane
