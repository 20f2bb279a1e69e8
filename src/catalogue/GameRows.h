// SPDX-License-Identifier: MIT
// The rows of the game list: the name and the icon of each game. The names are a snapshot of the folder; the
// list control itself belongs to the main window.
#pragma once

#include "platform/base/FolderNames.h"
#include "platform/base/RowSource.h"

#include <functional>
#include <vector>

namespace torvane {

/// The icons of the game list, by their numbers in its image list.
enum class GameIcon { none = 0, advance = 1, classic = 2, colour = 3, archive = 4 };

/// A count padded with zeros to four digits; "+9999" above 9999.
QString totalText(int count);

class GameRows : public RowSource {
public:
    /// Rows for the first `count` names. `lengthOf` gives the length in bytes of a file by its name; it is
    /// called for "bin" files only, and may fail.
    GameRows(std::shared_ptr<const FolderNames> names, int count,
             const std::function<qint64(const QString&)>& lengthOf);

    int count() const override { return static_cast<int>(m_icons.size()); }
    QString text(int row, int column) const override;
    int icon(int row) const override { return m_icons[static_cast<size_t>(row)]; }

    /// The icon for the size of a "bin" file; none below 1024 KB of 1000 bytes and for exactly 2048.
    static GameIcon iconOfSize(qint64 bytes);

private:
    std::shared_ptr<const FolderNames> m_names;
    std::vector<quint8> m_icons;
};

} // namespace torvane
