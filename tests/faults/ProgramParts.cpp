// SPDX-License-Identifier: MIT
// Assembling the modules.
#include "ProgramParts.h"
#include "TagBytes.h"

namespace torvane::faults {

ProgramParts::ProgramParts(const Workshop& workshop)
    : m_root(workshop.path()), m_globals{QString::fromStdString(workshop.path("program")), {}, {}, {}, {}},
      m_language(m_globals), m_hosts(m_globals), settings(QString::fromStdString(workshop.path("config"))),
      funciones({m_globals, m_language, m_hosts, *this, *this, settings}, *this),
      id3(m_globals, m_language, *this), adding(m_globals), versions(m_globals), webLists(m_globals) {
    id3.NewCompany = QString::fromLatin1(TagBytes::company);
    id3.NewTitle = QString::fromLatin1(TagBytes::title);
    id3.NewDate = QString::fromLatin1(TagBytes::date);
    id3.NewInfo = QString::fromLatin1(TagBytes::info);
}

QString ProgramParts::spelled(const std::string& relative) const {
    return QString::fromStdString(m_root + '/' + relative);
}

void startNext(const Workshop& workshop) { ProgramParts(workshop).funciones.sweepLeftovers(); }

} // namespace torvane::faults
