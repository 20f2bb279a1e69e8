// SPDX-License-Identifier: MIT
// One pass over the file, and an index of hashes.
#include "TitledEntries.h"
#include "platform/base/CodePage1252.h"
#include "tagdb/FieldEnds.h"

#include <QHashFunctions>
#include <algorithm>

namespace torvane {

namespace {
constexpr qsizetype longestTitle = 1024; // no game has a longer one in its tag or name

bool isConsole(QByteArrayView system) { return system == "byn" || system == "color" || system == "advance"; }

quint32 hashOf(QByteArrayView title) { return static_cast<quint32>(qHash(CodePage1252::upper(title))); }
} // namespace

TitledEntries::TitledEntries(QByteArray file) : m_file(std::move(file)) {
    read();
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [](const Entry& one, const Entry& other) { return one.hash < other.hash; });
}

void TitledEntries::read() {
    FieldStarts starts;
    starts.fill(static_cast<quint32>(m_file.size())); // at the end of the file every value is empty
    starts[systemField] = 0;
    int fields = 1;
    forEachFieldEnd(m_file, [&](qsizetype at) {
        const auto next = static_cast<quint32>(at + 1);
        if (m_file.at(at) == fieldSeparator) {
            if (fields < fieldCount) starts[static_cast<size_t>(fields++)] = next;
            return;
        }
        endLine(at, starts);
        starts[systemField] = next;
        fields = 1;
    });
    endLine(m_file.size(), starts);
}

void TitledEntries::endLine(qsizetype at, const FieldStarts& starts) {
    if (starts[systemField] == at || !isConsole(value(starts, systemField))) return;
    const auto hash = hashOfTitleAt(starts[titleField]);
    if (!hash) return;
    // Millions of lines may repeat one.
    const bool isKnown = !m_entries.empty() && isSame(m_entries.back().starts, starts, systemField) &&
                         std::equal(starts.begin() + 1, starts.end(), m_entries.back().starts.begin() + 1);
    if (!isKnown) m_entries.push_back({*hash, starts});
}

// Nothing if no game can have the title.
std::optional<quint32> TitledEntries::hashOfTitleAt(quint32 start) {
    if (m_titleStart == start) return m_titleHash;
    const QByteArrayView title = valueAt(m_file, start);
    const bool isTitle = !title.isEmpty() && title.size() <= longestTitle;
    m_titleStart = start;
    m_titleHash = isTitle ? std::optional(hashOf(title)) : std::nullopt;
    return m_titleHash;
}

TitledEntries::Match TitledEntries::find(const QByteArray& title, const QByteArray& system) const {
    const QByteArray wanted = CodePage1252::upper(title);
    const quint32 hash = hashOf(title);
    const FieldStarts* found = nullptr;
    for (auto at = std::lower_bound(m_entries.begin(), m_entries.end(), hash,
                                    [](const Entry&entry, quint32 sought) { return entry.hash < sought; });
         at != m_entries.end() && at->hash == hash; ++at) {
        const FieldStarts& starts = at->starts;
        if (!system.isEmpty() && value(starts, systemField) != system) continue;
        if (CodePage1252::upper(value(starts, titleField)) != wanted) continue;
        if (found != nullptr && !areSameTexts(*found, starts)) return {std::nullopt, true};
        found = &starts;
    }
    return found == nullptr ? Match() : Match{entry(*found)};
}

QByteArrayView TitledEntries::value(const FieldStarts& starts, OnlineDbField field) const {
    return valueAt(m_file, starts[field]);
}

bool TitledEntries::isSame(const FieldStarts& one, const FieldStarts& other, OnlineDbField field) const {
    return one[field] == other[field] || value(one, field) == value(other, field);
}

bool TitledEntries::areSameTexts(const FieldStarts& one, const FieldStarts& other) const {
    const auto fields = {titleField, companyField, dateField, infoField};
    return std::all_of(fields.begin(), fields.end(),
                       [&](OnlineDbField field) { return isSame(one, other, field); });
}

OnlineDbEntry TitledEntries::entry(const FieldStarts& starts) const {
    const auto bytes = [&](OnlineDbField field) { return value(starts, field).toByteArray(); };
    return {bytes(systemField), bytes(titleField), bytes(companyField),
            bytes(dateField),   bytes(infoField),  CodePage1252::upper(value(starts, kindField)),
            bytes(authorField)};
}

} // namespace torvane
