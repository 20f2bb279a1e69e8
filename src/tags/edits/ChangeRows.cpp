// SPDX-License-Identifier: MIT
// Comparing tags field by field.
#include "ChangeRows.h"

namespace torvane {

namespace {
struct NamedField {
    const char* name;
    QByteArray TagLine::Fields::*field;
};
constexpr NamedField shownFields[] = {{"title", &TagLine::Fields::title},
                                      {"company", &TagLine::Fields::company},
                                      {"date", &TagLine::Fields::date},
                                      {"info", &TagLine::Fields::info}};
} // namespace

std::vector<OptionForm> ChangeRows::options() {
    std::vector<OptionForm> options = RowFormat::options();
    options.push_back({"--dry-run"});
    return options;
}

QByteArray ChangeRows::help() {
    return QByteArray("      --dry-run       write nothing, print what would change\n"
                      "      --json, --tsv   print that as JSON, or as lines with tabs\n");
}

TagEdits::Mode ChangeRows::modeOf(const Arguments& given) {
    return given.has("--dry-run") ? TagEdits::Mode::rehearsal : TagEdits::Mode::forReal;
}

ChangeRows::ChangeRows(const Arguments& given, Output& output) {
    const Columns columns{{"file"}, {"field"}, {"before"}, {"after"}};
    if (modeOf(given) == TagEdits::Mode::rehearsal)
        m_writer = RowFormat::writer(given, RowFormat::Plain::table, columns, output);
}

void ChangeRows::add(const TagEdit& edit, const TagEdits::State& before) {
    if (!m_writer) return;
    const Field name = Field::ofName(edit.game.name);
    // A tag that a selection does not see has no fields to show.
    if (!before.tag && !edit.tag) return m_writer->add({name, Field::ofName("tag"), Field(), Field()});
    for (const auto& [label, field] : shownFields) {
        const Field old = before.tag ? Field::ofTagText(before.tag->fields.*field) : Field();
        const Field fresh = edit.tag ? Field::ofTagText((*edit.tag).*field) : Field();
        if (old.kind == fresh.kind && old.bytes == fresh.bytes) continue;
        m_writer->add({name, Field::ofName(label), old, fresh});
    }
}

void ChangeRows::finish() {
    if (m_writer) m_writer->finish();
}

} // namespace torvane
