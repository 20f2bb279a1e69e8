// SPDX-License-Identifier: MIT
// Names, icons and keys of pictures.
#include "ScreenshotRows.h"

namespace torvane {

QString ScreenshotRows::text(int row, int) const { return m_cut.firstPiece(m_names->name(row)); }

int ScreenshotRows::icon(int row) const {
    for (int known = static_cast<int>(m_kinds.size()); known <= row; ++known) {
        const PictureKind above = m_kinds.empty() ? PictureKind::other : m_kinds.back();
        const PictureKind own = pictureKindOf(m_names->name(known), m_cut);
        m_kinds.push_back(own == PictureKind::other ? above : own);
    }
    return static_cast<int>(m_kinds[static_cast<size_t>(row)]);
}

QString ScreenshotRows::key(int row) const { return QStringLiteral("img") + QString::number(row); }

} // namespace torvane
