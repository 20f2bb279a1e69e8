// SPDX-License-Identifier: MIT
// Shared procedures.
#include "Funciones.h"
#include "GameFilter.h"
#include "Pages.h"
#include "SettingValues.h"
#include "Texts.h"
#include "platform/base/File.h"
#include "platform/base/Leftovers.h"
#include "platform/base/Paths.h"
#include "platform/base/RuntimeFailure.h"
#include "platform/base/SafeFile.h"

namespace torvane {

namespace {
// The folder of a copy that is not complete; empty if there is none.
TextSetting unfinished(Settings& settings) { return {settings, "Unfinished", {}}; }

// The folder of a file; of a symbolic link, the folder of its target.
QString folderOf(const QByteArray& path) { return Paths::spelled(placeOf(path).folder); }
} // namespace

void Funciones::CopyRom(const QString& sourcePath, const QString& fileName) {
    const QString title = Texts(m_parts.language, "MainMenu")("copyrom") + fileName;
    const int filterIndex = gameFilterIndex(fileName, m_parts.globals.names);
    const QString target = m_parts.dialogs.showSave({title, gameFileFilter, filterIndex, fileName});
    if (target.isEmpty() || target == QStringLiteral(" ")) return;
    // A user's folder is searched at the next start only if a copy into it was cut off.
    rememberUnfinished(folderOf(Paths::realToCreate(target)));
    SafeFile::copy(sourcePath, target);
    rememberUnfinished({});
}

void Funciones::rememberUnfinished(const QString& folder) {
    ignoring([&] { unfinished(m_parts.settings).set(folder); });
}

void Funciones::sweepLeftovers() {
    const QString library = m_parts.globals.libraryFolder();
    const QString cutOff = unfinished(m_parts.settings).value();
    Leftovers::sweep(m_parts.globals.AppPath);
    Leftovers::sweep(m_parts.globals.AppPath + QStringLiteral("\\data"));
    Leftovers::sweep(m_parts.globals.AppPath + QStringLiteral("\\data\\lang"));
    Leftovers::sweep(library);
    Leftovers::sweep(library + QStringLiteral("\\data\\backup"));
    ignoring([&] { Leftovers::sweep(folderOf(Paths::real(m_parts.settings.fileOf(Config::application)))); });
    if (cutOff.isEmpty()) return;
    Leftovers::sweep(cutOff);
    rememberUnfinished({});
}

void Funciones::DeleteRom(const QString& path) {
    File::remove(path);
    m_mainWindow.pointGamesAtLibrary();
}

void Funciones::OpenURL(const QString& url) { m_mainWindow.followLink(url); }

void Funciones::ShowFatalError() {
    m_parts.messages.MsgBox(
        QStringLiteral("Torvane ha encontrado un error y será cerrado. Ahora se abrirá el "
                       "navegador y cargará el FAQ de la página web de Torvane."),
        MsgBoxFlags::critical, QStringLiteral("KESTRA Halyard Kernel"));
    OpenURL(m_parts.hosts.address(Pages::questions));
}

} // namespace torvane
