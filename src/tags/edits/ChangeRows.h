// SPDX-License-Identifier: MIT
// What a rehearsal prints: a row for each field of a tag that would change.
#pragma once

#include "TagEdits.h"
#include "tags/rows/RowFormat.h"

namespace torvane {

class ChangeRows {
public:
    /// --dry-run, and the forms of rows.
    static std::vector<OptionForm> options();
    /// What the help of a command says of these.
    static QByteArray help();
    /// Whether the options ask for a rehearsal.
    static TagEdits::Mode modeOf(const Arguments& given);

    /// Prints nothing unless the options ask for a rehearsal.
    ChangeRows(const Arguments& given, Output& output);

    /// Adds what an edit changes: file, field, before and after, with nothing after if the tag is removed.
    void add(const TagEdit& edit, const TagEdits::State& before);
    void finish();
    /// The rows, for the progress bar; null if nothing is printed.
    const RowWriter* writer() const { return m_writer.get(); }

private:
    std::unique_ptr<RowWriter> m_writer;
};

} // namespace torvane
