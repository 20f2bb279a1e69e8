// SPDX-License-Identifier: MIT
// The user's choices: one text for each application, section and key, which are compared without regard to
// case. One INI file per application in the user's configuration folder.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <utility>

namespace torvane {

class Settings {
public:
    /// The store in a configuration folder (real path; usually $XDG_CONFIG_HOME), which is made if necessary.
    /// Without one, an empty path, nothing can be stored.
    explicit Settings(const QString& configurationFolder);

    /// The stored text; `absent` if there is no such key. An unreadable file counts as empty.
    QString GetSetting(const QString& application, const QString& section, const QString& key,
                       const QString& absent) const;
    /// Creates or replaces the value at once; fails if it can't be stored. Writes nothing if it is stored
    /// already.
    void SaveSetting(const QString& application, const QString& section, const QString& key,
                     const QString& value);
    /// The same for several keys, each with its value: stores all of them at once, or none.
    void SaveSettings(const QString& application, const QString& section,
                      const QList<std::pair<QString, QString>>& values);

    /// Fails if the values of an application can't be stored. Makes the folder of its file.
    void requireStorable(const QString& application) const;
    /// From now on, what can't be stored is no failure, but kept until the end of this object.
    void keepWhatFails() { m_keepsWhatFails = true; }

    /// The file of an application: `Torvane/Torvane.conf` in the configuration folder for `Torvane`.
    QString fileOf(const QString& application) const;

    /// A stored text as a number, rounded to nearest with half to even. Fails with typeMismatch if it is not
    /// a number, and with overflow outside 32 bits.
    static int toNumber(const QString& text);
    /// A stored text as a flag: "True" or "False" in any case, or a number, where only 0 is false. Fails as
    /// toNumber does.
    static bool toFlag(const QString& text);

private:
    using Values = QList<std::pair<QString, QString>>;

    static QString nameOf(const QString& application, const QString& section, const QString& key);
    QByteArray madeFolder(const QString& file) const;
    void store(const QString& application, const QString& section, const Values& values) const;

    QString m_folder;
    bool m_keepsWhatFails = false;
    QMap<QString, QString> m_kept; ///< by nameOf()
};

} // namespace torvane
