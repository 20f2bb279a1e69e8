// SPDX-License-Identifier: MIT
// Reading before a change, and the change by the tag module.
#include "TagEdits.h"
#include "Reports.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/File.h"
#include "platform/base/Folder.h"
#include "platform/base/Leftovers.h"
#include "platform/base/Paths.h"

namespace torvane {

TagEdits::TagEdits(Mode mode, Reports& reports) : m_mode(mode), m_reports(reports) {}

TagEdits::State TagEdits::stateOf(const GameFile& game) {
    if (!isRehearsal()) sweepBeside(game.path);
    const File file = File::ofReal(game.path);
    const qint64 length = file.length();
    return {length, TagWindow::tag(file.handle(), length)};
}

// A link may lead to a game in another folder, and there the leftovers are.
void TagEdits::sweepBeside(const QByteArray& path) {
    const QByteArray folder = placeOf(path).folder;
    if (m_swept.insert(folder).second) Leftovers::sweep(Paths::spelled(folder));
}

bool TagEdits::hasTag(const GameFile& game) const { return m_id3.HasRomTag(Paths::spelled(game.path)); }

void TagEdits::add(const TagEdit& edit) {
    if (isRehearsal()) return;
    try {
        write(edit);
    } catch (const RuntimeFailure& failure) {
        m_reports.fault(edit.game.name, failure);
    }
}

void TagEdits::write(const TagEdit& edit) {
    const QString path = Paths::spelled(edit.game.path);
    if (!edit.tag) return ID3::StripRomTag(path);
    m_id3.NewTitle = CodePage1252::fromBytes(edit.tag->title);
    m_id3.NewCompany = CodePage1252::fromBytes(edit.tag->company);
    m_id3.NewDate = CodePage1252::fromBytes(edit.tag->date);
    m_id3.NewInfo = CodePage1252::fromBytes(edit.tag->info);
    m_id3.SaveRomTag(path, [] {});
}

} // namespace torvane
