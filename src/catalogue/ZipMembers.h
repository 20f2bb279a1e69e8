// SPDX-License-Identifier: MIT
// What the program knows of an unpacked archive: its folder, the kinds of its members, the rows that show
// them. The members are the plain files of the folder's top level; what lies deeper is neither shown nor
// removed. Members without a "." in their names have no kind: they get no row, and go with the others.
#pragma once

#include "core/Globals.h"
#include "platform/base/FolderNames.h"
#include "platform/base/RowSource.h"
#include "platform/base/UnZip.h"

namespace torvane {

/// Pictures of members, by their numbers in the window's list of images.
enum class MemberIcon { classic = 1, advance = 2, colour = 3, unknown = 4 };

/// The piece of a name between its first and its second ".", in lower case. A name without "." fails with a
/// subscript out of range.
QString memberExtension(const QString& name);
/// Whether the emulator is started with a member of this name, given as bytes; not if it has no ".".
bool isPlayable(QByteArrayView name);
/// The picture by the extension; some kinds that can be played have none of their own.
MemberIcon memberIcon(const QString& extension);

/// A row a member, in the order of the names.
class ZipMembers : public RowSource {
public:
    explicit ZipMembers(std::shared_ptr<const FolderNames> names);

    int count() const override { return static_cast<int>(m_positions.size()); }
    QString text(int row, int) const override { return m_names->name(position(row)); }
    int icon(int row) const override { return static_cast<int>(memberIcon(memberExtension(text(row, 0)))); }
    /// The key of a row counted from 0, by its member's position: "1file" for the first name.
    QString key(int row) const override {
        return QString::number(position(row) + 1) + QStringLiteral("file");
    }
    /// The position of a row's member among the names, counted from 0; -1 for a row that does not exist.
    int position(int row) const {
        return row < 0 || row >= count() ? -1 : m_positions[static_cast<size_t>(row)];
    }
    bool hasPlayable() const { return m_hasPlayable; }
    /// Fails with a subscript out of range if a member has no row, for want of a ".".
    void requireAllListed() const;

private:
    std::shared_ptr<const FolderNames> m_names;
    std::vector<int> m_positions;
    bool m_hasPlayable = false;
};

/// The folders that archives are unpacked into, below "\ziptemp\". They bear the piece of an archive's bare
/// name in front of its first "."; archives that agree in it share a folder.
class ZipTemp {
public:
    explicit ZipTemp(const Globals& globals) : m_globals(globals) {}

    /// The folder of an archive's bare name, spelled with its closing "\".
    QString folderOf(const QString& name) const;
    /// Whether that folder is there and is no symbolic link: else it is not ours, and stays untouched.
    bool isOurs(const QString& name) const;
    /// Makes the folder if need be, and unpacks the archive of a full path into it. What lies in the folder
    /// then is the result; the answer is why no game has come out.
    UnZip::Reason ExtractZipToTemp(UnZip& engine, const QString& path, const QString& name) const;
    /// Deletes the files of the folder's top level, those that a list shows, and then the folder if nothing
    /// else is in it. Every failure is ignored; nothing is followed through a symbolic link.
    void DeleteTemp(const QString& name) const;

private:
    QByteArray realFolder(const QString& name) const;

    const Globals& m_globals;
};

} // namespace torvane
