// SPDX-License-Identifier: MIT
// The modules of the program as its start puts them together, over a workshop. The user and the desktop are
// answers that are set here.
#pragma once

#include "Workshop.h"
#include "catalogue/AddNewROM.h"
#include "catalogue/ID3.h"
#include "core/Funciones.h"

namespace torvane::faults {

class ProgramParts : private MessageBoxes, private FileDialogs, private MainWindowReach {
public:
    explicit ProgramParts(const Workshop& workshop);

    /// The spelled path of a file of the workshop.
    QString spelled(const std::string& relative) const;
    /// What the user answers when he is asked where to copy a game to.
    void answer(const QString& path) { m_answer = path; }

private:
    int MsgBox(const QString&, int, const QString&) override { return MsgBoxFlags::answerOk; }
    QString showOpen(const FileQuestion&) override { return {}; }
    QString showSave(const FileQuestion&) override { return m_answer; }
    QString showFolder(const FileQuestion&) override { return {}; }
    void followLink(const QString&) override {}
    void pointGamesAtLibrary() override {}

    std::string m_root;
    QString m_answer;
    Globals m_globals;
    LanguageTables m_language;
    Hosts m_hosts;

public:
    Settings settings;
    Funciones funciones;
    ID3 id3;
    AddNewROM adding;
};

/// What the program does at its next start about the files of the last one.
void startNext(const Workshop& workshop);

} // namespace torvane::faults
