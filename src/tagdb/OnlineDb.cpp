// SPDX-License-Identifier: MIT
// Writing and reading the local copy.
#include "OnlineDb.h"
#include "FilteredLines.h"
#include "platform/base/File.h"
#include "platform/base/SafeFile.h"

namespace torvane {

namespace {
// Twice what a download may bring. The rows count their offsets in 32 bits.
constexpr qint64 mostBytes = qint64{512} << 20;
} // namespace

void OnlineDb::write(QByteArray body) const {
    body += "\r\n";
    SafeFile::replace(path(), body);
}

std::shared_ptr<OnlineDbRows> OnlineDb::filtered(const OnlineDbFilter& filter, const QDate& today,
                                                 const QString& shortDateFormat) const {
    return filterLines(File::contentOf(path(), mostBytes), filter, today, shortDateFormat);
}

} // namespace torvane
