// SPDX-License-Identifier: MIT
// The modules of the program, assembled over a workshop as they are at its start. Answers that are set here
// replace the user and the desktop.
#pragma once

#include "Workshop.h"
#include "catalogue/AddNewROM.h"
#include "catalogue/ID3.h"
#include "core/Funciones.h"
#include "settings/VersionFile.h"
#include "weblinks/WebLists.h"

namespace torvane::faults {

class ProgramParts : private MessageBoxes, private FileDialogs, private MainWindowReach {
public:
    explicit ProgramParts(const Workshop& workshop);

    /// The spelled path of a file of the workshop.
    QString spelled(const std::string& relative) const;
    const Globals& globals() const { return m_globals; }
    /// The user's answer to the question where to copy a game to.
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
    VersionFile versions;
    WebLists webLists;
};

/// What the program does at its next start with leftovers of the last run.
void startNext(const Workshop& workshop);

} // namespace torvane::faults
