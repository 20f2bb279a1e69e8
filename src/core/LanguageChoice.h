// SPDX-License-Identifier: MIT
// Which language file to use. The setting is a full path, and survives when the program's folder is moved or
// the file is deleted.
#pragma once

#include "Globals.h"
#include "platform/base/Settings.h"

namespace torvane {

class LanguageChoice {
public:
    LanguageChoice(Settings& settings, const Globals& globals) : m_settings(settings), m_globals(globals) {}

    /// Whether the user has never chosen a language.
    bool isFirst() const { return stored().isEmpty(); }
    /// The spelled path of the file to use: the chosen one, or if that can't be read the one of the same name
    /// in this program's folder. Empty if neither can be read, or none was chosen.
    QString file() const;
    /// The folder of the program's own language files, spelled, with its closing "\".
    QString folder() const { return m_globals.AppPath + QStringLiteral("\\data\\lang\\"); }
    /// The setting as it is; empty if there is none.
    QString stored() const;

private:
    Settings& m_settings;
    const Globals& m_globals;
};

} // namespace torvane
