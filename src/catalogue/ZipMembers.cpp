// SPDX-License-Identifier: MIT
// Members of archives, and the folders that they are unpacked into.
#include "ZipMembers.h"
#include "AddNewROM.h"
#include "platform/base/Folder.h"
#include "platform/base/Paths.h"

#include <algorithm>
#include <array>

namespace torvane {

namespace {
constexpr std::array playableKinds = {"gb", "gbc", "gba", "agb", "cgb", "bin"};

bool isPlayableKind(const QString& extension) {
    return std::any_of(playableKinds.begin(), playableKinds.end(),
                       [&](const char* kind) { return extension == QLatin1String(kind); });
}

} // namespace

QString memberExtension(const QString& name, const NameCut& cut) {
    if (!name.contains(QLatin1Char('.'))) throw RuntimeFailure(RuntimeFailure::subscript);
    return cut.secondPiece(name).toLower();
}

// Decodes only the extension: there may be very many names.
bool isPlayable(QByteArrayView name, const NameCut& cut) {
    const std::string_view piece = cut.secondPieceOf(name);
    return isPlayableKind(QString::fromUtf8(piece.data(), static_cast<qsizetype>(piece.size())).toLower());
}

MemberIcon memberIcon(const QString& extension) {
    if (extension == QStringLiteral("gb")) return MemberIcon::classic;
    if (extension == QStringLiteral("gba")) return MemberIcon::advance;
    return extension == QStringLiteral("gbc") ? MemberIcon::colour : MemberIcon::unknown;
}

ZipMembers::ZipMembers(std::shared_ptr<const FolderNames> names, const NameCut& cut)
    : m_names(std::move(names)), m_cut(cut) {
    for (int position = 0; position < m_names->count(); ++position) {
        const QByteArrayView name = m_names->bytes(position);
        if (name.contains('.')) m_positions.push_back(position);
        m_hasPlayable = m_hasPlayable || isPlayable(name, cut);
    }
}

void ZipMembers::requireAllListed() const {
    if (count() < m_names->count()) throw RuntimeFailure(RuntimeFailure::subscript);
}

QString ZipTemp::folderOf(const QString& name) const {
    QString folder = m_globals.names.firstPiece(name);
    // It must be a folder of its own: never "." or "..", in which other files are.
    if (folder.startsWith(QLatin1Char('.'))) folder.front() = QLatin1Char('_');
    return m_globals.AppPath + QStringLiteral("\\ziptemp\\") + folder + QLatin1Char('\\');
}

QByteArray ZipTemp::realFolder(const QString& name) const { return Paths::real(folderOf(name).chopped(1)); }

bool ZipTemp::isOurs(const QString& name) const {
    struct stat info {};
    return lstat(realFolder(name).constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

UnZip::Reason ZipTemp::ExtractZipToTemp(UnZip& engine, const QString& path, const QString& name) const {
    ignoring([&] { Folder::make(realFolder(name)); });
    if (!isOurs(name)) return UnZip::Reason::noRoom;
    engine.isWanted = [this](QByteArrayView member) { return isPlayable(member, m_globals.names); };
    engine.setFolder(folderOf(name));
    engine.setArchive(path);
    return engine.extract(QStringLiteral("*.*"));
}

void ZipTemp::DeleteTemp(const QString& name) const {
    const QByteArray real = realFolder(name);
    const Handle folder(open(real.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder.isOpen()) return;
    // Via the open folder: another folder that takes its name meanwhile is not touched.
    const QString opened = QStringLiteral("/proc/self/fd/%1").arg(folder.number());
    const auto names = FolderNames::read(opened, QStringLiteral("*.*"));
    for (int i = 0; i < names->count(); ++i) {
        SetFileAttributes(opened + QLatin1Char('\\') + names->name(i));
        unlinkat(folder.number(), names->bytes(i).toByteArray().constData(), 0);
    }
    rmdir(real.constData());
}

} // namespace torvane
