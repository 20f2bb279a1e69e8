// SPDX-License-Identifier: MIT
// From an entry to a tag.
#include "NamedTags.h"
#include "catalogue/TagInput.h"
#include "platform/base/CodePage1252.h"
#include "tags/edits/GivenTag.h"
#include "tags/edits/WritableGame.h"

#include <algorithm>

namespace torvane {

namespace {
// As a tag stores a text that is empty.
const QByteArray blankText = QByteArrayLiteral(" ");

std::optional<QByteArray> textOrKept(const QByteArray& text, bool isTagged) {
    if (!text.isEmpty()) return text;
    return isTagged ? std::nullopt : std::optional(blankText);
}

GivenTag tagOf(const ListEntry& entry, bool isTagged) {
    GivenTag tag;
    tag.title = entry.title;
    tag.company = textOrKept(entry.company, isTagged);
    tag.info = textOrKept({}, isTagged);
    if (!entry.year.isEmpty()) tag.date = entry.year;
    return tag;
}

bool haveOneTag(const std::vector<ListEntry>& entries) {
    const ListEntry& first = entries.front();
    return std::all_of(entries.begin(), entries.end(), [&](const ListEntry& entry) {
        return entry.title == first.title && entry.company == first.company && entry.year == first.year;
    });
}
} // namespace

NamedTags::NamedTags(Which which, const Arguments& given, Session& session)
    : m_which(which), m_session(session), m_edits(ChangeRows::modeOf(given), session),
      m_rows(given, session.output()), m_today(CodePage1252::toBytes(TagInput::todayAsText())) {}

void NamedTags::write(const std::vector<FoundGame>& games) {
    m_session.reports().begin(static_cast<int>(games.size()));
    for (const FoundGame& game : games) {
        if (m_session.isOver()) break;
        m_session.attempt(game.name, [&] { writeOne(game); });
        m_session.reports().step();
    }
    m_edits.finish();
    m_rows.finish();
    m_session.reports().end();
}

void NamedTags::writeOne(const FoundGame& game) {
    const std::vector<ListEntry> entries = game.entries();
    if (entries.empty() || !game.member.isEmpty()) return;
    const GameFile file = game.file();
    const TagEdits::State state = m_edits.stateOf(file);
    const bool isTagged = state.tag.has_value() || m_edits.hasTag(file);
    if (isTagged && m_which == Which::untagged) return;
    Reports& reports = m_session.reports();
    QByteArray fault = faultOfWriting(game.name, m_session.names());
    if (fault.isEmpty() && !haveOneTag(entries)) fault = "the lists have several names for it";
    if (!fault.isEmpty()) return reports.fault(game.name, fault);
    const GivenTag::Result result =
        tagOf(entries.front(), state.tag.has_value()).over(state.tag, state.length, m_today);
    if (!result.fault.isEmpty()) return reports.fault(game.name, result.fault);
    if (!result.isNew) return;
    const TagEdit edit{file, result.fields};
    m_rows.add(edit, state);
    m_edits.add(edit, state);
}

} // namespace torvane
