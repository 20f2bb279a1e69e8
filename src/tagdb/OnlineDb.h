// SPDX-License-Identifier: MIT
// The local copy of the tag database, "\online_db.dat": written whole after a download, and read anew by each
// filtering. Owned by the database window. FilteredLines has the rules of the filter.
#pragma once

#include "OnlineDbFilter.h"
#include "OnlineDbRows.h"
#include "core/Globals.h"

#include <QDate>
#include <memory>

namespace torvane {

class OnlineDb {
public:
    explicit OnlineDb(const Globals& globals) : m_globals(globals) {}

    /// The spelled path of the file.
    QString path() const { return m_globals.AppPath + QStringLiteral("\\online_db.dat"); }
    /// Replaces the file by a body of any bytes and a line end. On a failure the old file stays whole.
    void write(QByteArray body) const;
    /// Reads the file and gives the entries that pass, in file order (see filterLines). Fails if the file
    /// can't be opened or read; with outOfMemory if it has more than 512 MiB.
    std::shared_ptr<OnlineDbRows> filtered(const OnlineDbFilter& filter, const QDate& today,
                                           const QString& shortDateFormat) const;

private:
    const Globals& m_globals;
};

} // namespace torvane
