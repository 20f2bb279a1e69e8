// SPDX-License-Identifier: MIT
// The rows of the gallery's list: name, icon and key of each file. The names are a snapshot of the folder.
#pragma once

#include "PictureKind.h"
#include "platform/base/FolderNames.h"
#include "platform/base/RowSource.h"

#include <vector>

namespace torvane {

class ScreenshotRows : public RowSource {
public:
    ScreenshotRows(std::shared_ptr<const FolderNames> names, const NameCut& cut)
        : m_names(std::move(names)), m_cut(cut) {}

    int count() const override { return m_names->count(); }
    /// The first piece of the file's name.
    QString text(int row, int column) const override;
    /// The number of the kind (see PictureKind). A file of no known kind has the icon of the row above it.
    int icon(int row) const override;
    /// "img" and the row, counted from 0.
    QString key(int row) const override;

private:
    std::shared_ptr<const FolderNames> m_names;
    NameCut m_cut;
    // Of the rows from the first to the last that was shown: a folder may hold 100,000 files.
    mutable std::vector<PictureKind> m_kinds;
};

} // namespace torvane
