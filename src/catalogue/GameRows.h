// SPDX-License-Identifier: MIT
// The rows of the game list: which name and which picture a game gets. The names are those of the folder
// at the time of the list's making; the list itself is the main window's.
#pragma once

#include "platform/base/FolderNames.h"
#include "platform/base/RowSource.h"

#include <functional>
#include <vector>

namespace torvane {

/// Pictures of the game list, by their numbers.
enum class GameIcon { none = 0, advance = 1, classic = 2, colour = 3, archive = 4 };

/// A count in at least four digits with zeros in front; "+9999" above 9999.
QString totalText(int count);

class GameRows : public RowSource {
public:
    /// Rows for the first `count` of the names. `lengthOf` gives the length in bytes of a file by its
    /// name, and may fail; it is asked for "bin" files only.
    GameRows(std::shared_ptr<const FolderNames> names, int count,
             const std::function<qint64(const QString&)>& lengthOf);

    int count() const override { return static_cast<int>(m_icons.size()); }
    QString text(int row, int column) const override;
    int icon(int row) const override { return m_icons[static_cast<size_t>(row)]; }

    /// The picture by the size of a "bin" file: nothing for exactly 2048 KB (of 1000) and below 1024.
    static GameIcon iconOfSize(qint64 bytes);

private:
    std::shared_ptr<const FolderNames> m_names;
    std::vector<quint8> m_icons;
};

} // namespace torvane
