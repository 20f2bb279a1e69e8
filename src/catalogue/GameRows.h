// SPDX-License-Identifier: MIT
// The rows of the game list: the name and the icon of each game. The names are a snapshot of the folder; the
// list control itself belongs to the main window.
#pragma once

#include "core/Pieces.h"
#include "platform/base/FolderNames.h"
#include "platform/base/RowSource.h"

#include <functional>
#include <string_view>
#include <vector>

namespace torvane {

/// The icons of the game list, by their numbers in its image list.
enum class GameIcon : quint8 { none = 0, advance = 1, classic = 2, colour = 3, archive = 4 };

/// A count padded with zeros to four digits; "+9999" above 9999.
QString totalText(int count);

class GameRows : public RowSource {
public:
    using LengthOf = std::function<qint64(const QString&)>;

    /// Rows for the first `count` names. `lengthOf` gives the length in bytes of a file by its name; it is
    /// called for "bin" files only, when they or a later row are first shown, and may fail.
    GameRows(std::shared_ptr<const FolderNames> names, int count, LengthOf lengthOf, const NameCut& cut);

    int count() const override { return m_count; }
    QString text(int row, int column) const override;
    int icon(int row) const override;
    /// The first row, counted from 0, whose text begins with another (see NameBeginning); -1 for none.
    int firstWith(const QString& beginning) const;

    /// The icon of an extension in lower case; none for "bin", whose size decides, and for all others.
    static GameIcon iconOfKind(std::string_view kind);
    /// The icon for the size of a "bin" file; none below 1024 KB of 1000 bytes and for exactly 2048.
    static GameIcon iconOfSize(qint64 bytes);

private:
    GameIcon iconAfter(GameIcon above, int row) const;

    std::shared_ptr<const FolderNames> m_names;
    int m_count;
    LengthOf m_lengthOf;
    NameCut m_cut;
    // Of the rows from the first to the last that was shown: a start looks at one page of a large library.
    mutable std::vector<GameIcon> m_icons;
};

} // namespace torvane
