// SPDX-License-Identifier: MIT
// Unpacking as the window does, and choosing among the games.
#include "UnpackedGame.h"
#include "platform/base/Paths.h"
#include "platform/base/Printable.h"

#include <QByteArrayList>
#include <unistd.h>

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
} // namespace

UnpackedGame::UnpackedGame(const Globals& globals, const QByteArray& archive, const QByteArray& member,
                           const std::function<bool()>& goesOn)
    : m_globals(globals), m_temp(globals), m_name(QStringLiteral("play-%1").arg(getpid())) {
    UnZip engine;
    engine.goesOn = goesOn;
    m_fault = wordsFor(m_temp.ExtractZipToTemp(engine, Paths::spelled(archive), m_name));
    if (!goesOn()) m_fault = "it was not unpacked";
    if (m_fault.isEmpty()) choose(member);
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
