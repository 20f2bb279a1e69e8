// SPDX-License-Identifier: MIT
// What one edit of a text did.
#pragma once

#include <QString>

namespace torvane {

/// An edit took one piece out of a text and put another one at the same place. Lengths in UTF-16 units; no
/// end of a piece lies within a surrogate pair.
struct TextEdit {
    qsizetype start = 0;
    qsizetype removed = 0;
    qsizetype added = 0;

    /// The smallest edit between two texts. Where several are as small, as in "aa" out of "a", it is the one
    /// that ends at the cursor, where an editor leaves it.
    static TextEdit between(const QString& before, const QString& after, qsizetype cursor);
};

} // namespace torvane
