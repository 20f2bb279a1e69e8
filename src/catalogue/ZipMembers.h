// SPDX-License-Identifier: MIT
// An unpacked archive: its folder, the kinds of its members, and their rows. The members are the plain files
// at the folder's top level; anything deeper is neither listed nor deleted. A member without a "." in its
// name has no kind: it gets no row, but is deleted with the others.
#pragma once

#include "core/Globals.h"
#include "platform/base/FolderNames.h"
#include "platform/base/RowSource.h"
#include "platform/base/UnZip.h"

namespace torvane {

/// The icons of members, by their numbers in the window's image list.
enum class MemberIcon { classic = 1, advance = 2, colour = 3, unknown = 4 };

/// The second piece of a name, in lower case. Fails with "subscript" if the name has no ".".
QString memberExtension(const QString& name, const NameCut& cut);
/// Whether the emulator can play a member with this name, given in bytes; false if it has no ".".
bool isPlayable(QByteArrayView name, const NameCut& cut);
/// The icon of an extension; some playable kinds have none of their own and get `unknown`.
MemberIcon memberIcon(const QString& extension);

/// One row per member with a kind, in the order of the names.
class ZipMembers : public RowSource {
public:
    ZipMembers(std::shared_ptr<const FolderNames> names, const NameCut& cut);

    int count() const override { return static_cast<int>(m_positions.size()); }
    QString text(int row, int) const override { return m_names->name(position(row)); }
    int icon(int row) const override {
        return static_cast<int>(memberIcon(memberExtension(text(row, 0), m_cut)));
    }
    /// The key of a row (counted from 0), made from its member's position: "1file" for the first name.
    QString key(int row) const override {
        return QString::number(position(row) + 1) + QStringLiteral("file");
    }
    /// The position of a row's member among the names, counted from 0; -1 for a row that does not exist.
    int position(int row) const {
        return row < 0 || row >= count() ? -1 : m_positions[static_cast<size_t>(row)];
    }
    bool hasPlayable() const { return m_hasPlayable; }
    /// Fails with "subscript" if a member has no row because its name lacks a ".".
    void requireAllListed() const;

private:
    std::shared_ptr<const FolderNames> m_names;
    NameCut m_cut;
    std::vector<int> m_positions;
    bool m_hasPlayable = false;
};

/// The folders below "\ziptemp\" that archives are unpacked into. A folder is named by the first piece of the
/// archive's bare name; archives with the same such piece share a folder.
class ZipTemp {
public:
    explicit ZipTemp(const Globals& globals) : m_globals(globals) {}

    /// The spelled folder of an archive given by its bare name, with the closing "\".
    QString folderOf(const QString& name) const;
    /// Whether that folder exists and is no symbolic link; else it is not ours and must not be touched.
    bool isOurs(const QString& name) const;
    /// Unpacks an archive, given by full path and bare name, into its folder, which is created if missing.
    /// Gives the reason why no game came out, or Reason::none. The unpacked files are the result.
    UnZip::Reason ExtractZipToTemp(UnZip& engine, const QString& path, const QString& name) const;
    /// Deletes the plain files at the folder's top level, and then the folder if it is empty. Failures are
    /// ignored; symbolic links are not followed.
    void DeleteTemp(const QString& name) const;

private:
    QByteArray realFolder(const QString& name) const;

    const Globals& m_globals;
};

} // namespace torvane
