// SPDX-License-Identifier: MIT
// Shared procedures.
#include "Funciones.h"
#include "GameFilter.h"
#include "platform/base/File.h"
#include "platform/base/SafeFile.h"

namespace torvane {

void Funciones::CopyRom(const QString& sourcePath, const QString& fileName) {
    const QString title =
        m_parts.language.LangText(QStringLiteral("MainMenu"), QStringLiteral("copyrom")) + fileName;
    const QString target =
        m_parts.dialogs.showSave({title, gameFileFilter, gameFilterIndex(fileName), fileName});
    if (target.isEmpty() || target == QStringLiteral(" ")) return;
    SafeFile::copy(sourcePath, target);
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
    OpenURL(m_parts.hosts.address(Hosts::Host::web, QStringLiteral("/modules.php?name=FAQ")));
}

} // namespace torvane
