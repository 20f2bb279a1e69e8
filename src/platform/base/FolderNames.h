// SPDX-License-Identifier: MIT
// The sorted names of the files of one folder that match a pattern. A table never changes once it is read, so
// lists can share it; it is compact, since a library may hold 100,000 games.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace torvane {

class FolderNames {
public:
    /// Reads the folder at a spelled path. Leaves out folders, hidden files (with a leading dot), anything
    /// that is neither a file nor a link to one, and names that the pattern doesn't match. Names are sorted
    /// without regard to case, equal ones by their bytes. A folder that is missing or unreadable gives an
    /// empty table.
    static std::shared_ptr<const FolderNames> read(const QString& folder, const QString& pattern);
    /// The same for up to 32 patterns, reading the folder once: one table for each pattern. Patterns that
    /// match the same names share their table.
    static std::vector<std::shared_ptr<const FolderNames>> read(const QString& folder,
                                                                const QStringList& patterns);

    /// Fails with the number of the error if the folder at a spelled path can't be listed.
    static void requireReadable(const QString& folder);

    int count() const { return static_cast<int>(m_ends.size()); }
    /// The bytes of a name, valid as long as the table; the index must be in range.
    QByteArrayView bytes(int index) const;
    /// The name as text (see NativeText).
    QString name(int index) const;
    /// The place of a name by its exact bytes; -1 if it is not there.
    int indexOf(QByteArrayView name) const;
    /// A table without the names for which `isLeftOut` is true.
    std::shared_ptr<const FolderNames> without(const std::function<bool(QByteArrayView)>& isLeftOut) const;

    bool operator==(const FolderNames&) const = default;

private:
    void append(QByteArrayView name);

    std::string m_text;
    std::vector<quint32> m_ends;
};

} // namespace torvane
