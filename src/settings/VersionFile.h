// SPDX-License-Identifier: MIT
// The newest version, as the update server reports it: a small file in INI form, of which the last one is
// kept as "\data\version.dat". Owned by the control panel.
#pragma once

#include "core/Globals.h"

namespace torvane {

class VersionFile {
public:
    explicit VersionFile(const Globals& globals) : m_globals(globals) {}

    /// The longest body that is fetched, in bytes: of a longer file nothing would be read.
    static constexpr qint64 longestBody = (4 << 20) - 2; // its line end comes on top

    /// The spelled path of the file.
    QString path() const { return m_globals.AppPath + QStringLiteral("\\data\\version.dat"); }
    /// Replaces the file by a body of any bytes and a line end. On a failure the old file stays whole.
    void write(const QByteArray& body) const;
    /// The version in the file, which may be any text of one line; empty if the file or the version is
    /// missing.
    QString lastVersion() const;
    /// Whether a version is newer than this program. Versions compare by the codes of their characters, one
    /// by one: "1.10" is older than "1.9".
    bool isNews(const QString& version) const { return m_globals.VersionText < version; }

    /// A version as a box shows it: a long one is cut.
    static QString shown(const QString& version);

private:
    const Globals& m_globals;
};

} // namespace torvane
