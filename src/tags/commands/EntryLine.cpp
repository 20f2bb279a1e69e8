// SPDX-License-Identifier: MIT
// Joining fields.
#include "EntryLine.h"
#include "catalogue/TagLine.h"
#include "tagdb/FieldStarts.h"

#include <QByteArrayList>
#include <algorithm>

namespace torvane::EntryLine {

namespace {
bool isCut(const QByteArray& field) { return std::any_of(field.begin(), field.end(), endsField); }
} // namespace

QByteArray systemOf(const QByteArray& console) {
    if (console == "GB") return "byn";
    if (console == "GBC") return "color";
    return console == "GBA" ? QByteArray("advance") : QByteArray();
}

QByteArray faultOf(const OnlineDbEntry& entry) {
    if (entry.System.isEmpty()) return "its name does not tell its console";
    const std::pair<const char*, const QByteArray&> fields[] = {{"title", entry.Title},
                                                                {"company", entry.Company},
                                                                {"date", entry.Date},
                                                                {"info", entry.Info},
                                                                {"author", entry.Author}};
    for (const auto& [name, field] : fields) {
        if (isCut(field)) return name + QByteArray(": a line of a database can't hold its characters");
    }
    return {};
}

QByteArray of(const OnlineDbEntry& entry) {
    const QByteArrayList fields = {entry.System, entry.Title, entry.Company, entry.Date,
                                   entry.Info,   entry.Kind,  entry.Author};
    return fields.join(fieldSeparator) + TagLine::lineEnd;
}

} // namespace torvane::EntryLine
