// SPDX-License-Identifier: MIT
// Unpacking as the window does, and choosing among the games.
#include "UnpackedGame.h"
#include "platform/base/Folder.h"
#include "platform/base/Paths.h"
#include "platform/base/Printable.h"

#include <QByteArrayList>
#include <algorithm>
#include <filesystem>
#include <sys/file.h>

namespace torvane {

namespace {
const char* wordsFor(UnZip::Reason reason) {
    switch (reason) {
    case UnZip::Reason::none: break;
    case UnZip::Reason::nothingWanted: return "there is no game in it";
    case UnZip::Reason::inSubfolders: return "its games are in folders";
    case UnZip::Reason::noRoom: return "there is no room to unpack it";
    case UnZip::Reason::encrypted: return "it needs a password";
    case UnZip::Reason::unknownMethod: return "it is packed in an unknown way";
    case UnZip::Reason::damaged: return "it is damaged";
    }
    return "";
}
constexpr int mostTries = 100;
const QString folderPrefix = QStringLiteral("torvane-play-"); // as hardly any archive is called

Handle openedFolder(const QByteArray& path, int flags = 0) {
    return Handle(open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | flags));
}

// Whether a process has made a folder of this name for itself.
bool isOfProcess(QStringView name) {
    const QStringView number = name.sliced(name.startsWith(folderPrefix) ? folderPrefix.size() : name.size());
    return !number.isEmpty() &&
           std::all_of(number.begin(), number.end(), [](QChar c) { return c.isDigit(); });
}
} // namespace

UnpackedGame::UnpackedGame(const Globals& globals, const QByteArray& archive, const QByteArray& member,
                           const std::function<bool()>& goesOn)
    : m_globals(globals), m_temp(globals), m_name(folderPrefix + QString::number(getpid())) {
    sweep();
    hold();
    UnZip engine;
    engine.goesOn = goesOn;
    m_fault = wordsFor(m_temp.ExtractZipToTemp(engine, Paths::spelled(archive), m_name));
    if (!goesOn()) m_fault = "it was not unpacked";
    if (m_fault.isEmpty()) choose(member);
}

// Removes the folders that nobody holds any more.
void UnpackedGame::sweep() const {
    const QByteArray all = placeOf(Paths::real(m_temp.folderOf(m_name).chopped(1))).folder;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(all.toStdString(), none)) {
        const QString name = Paths::spelled(QByteArray::fromStdString(entry.path().filename()));
        if (!isOfProcess(name)) continue;
        const Handle folder = openedFolder(QByteArray::fromStdString(entry.path()), O_CLOEXEC);
        if (folder.isOpen() && flock(folder.number(), LOCK_EX | LOCK_NB) == 0) m_temp.DeleteTemp(name);
    }
}

// The emulator inherits the lock, and may outlive this process. Between the making of the folder and the
// lock another process may remove it.
void UnpackedGame::hold() {
    const QByteArray path = Paths::real(m_temp.folderOf(m_name).chopped(1));
    for (int i = 0; i < mostTries; ++i) {
        if (!ignoring([&] { Folder::make(path); })) return;
        m_hold = openedFolder(path);
        if (!m_hold.isOpen() || flock(m_hold.number(), LOCK_SH) != 0) return;
        if (infoOf(m_hold).st_nlink > 0) return;
    }
}

void UnpackedGame::choose(const QByteArray& member) {
    const auto names = FolderNames::read(m_temp.folderOf(m_name), QStringLiteral("*.*"));
    QByteArrayList games;
    for (int i = 0; i < names->count(); ++i) {
        const QByteArray name = names->bytes(i).toByteArray();
        if (!isPlayable(name, m_globals.names)) continue;
        games += printable(name);
        const bool isMeant = member.isEmpty() || member == name;
        if (isMeant) m_path = m_temp.folderOf(m_name) + names->name(i);
    }
    const bool isChosen = !m_path.isEmpty() && (games.size() == 1 || !member.isEmpty());
    if (!isChosen) m_fault = "name one of its games: " + games.join(", ");
}

} // namespace torvane
