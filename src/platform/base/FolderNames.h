// SPDX-License-Identifier: MIT
// The names of the files of one folder that match a pattern, in order. A table is never changed once it
// is read, so lists can share it; it is kept small, since a library may hold 100,000 games.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <memory>
#include <string>
#include <vector>

namespace torvane {

class FolderNames {
public:
    /// Reads the folder of a spelled path. Left out are folders, hidden files (a dot in front), what is
    /// neither a file nor a link to one, and what the pattern doesn't match. The order is that of the
    /// names without regard to case, equal ones by their bytes. A folder that is missing or can't be
    /// read gives an empty table.
    static std::shared_ptr<const FolderNames> read(const QString& folder, const QString& pattern);
    /// The same for several patterns (32 at most), with one look at the folder: a table for each of them,
    /// and one and the same table for those that match the same names.
    static std::vector<std::shared_ptr<const FolderNames>> read(const QString& folder,
                                                                const QStringList& patterns);

    int count() const { return static_cast<int>(m_ends.size()); }
    /// The bytes of a name, valid as long as the table; the index must be in range.
    QByteArrayView bytes(int index) const;
    /// The name as text (see NativeText).
    QString name(int index) const;

private:
    void append(QByteArrayView name);

    std::string m_text;
    std::vector<quint32> m_ends;
};

} // namespace torvane
