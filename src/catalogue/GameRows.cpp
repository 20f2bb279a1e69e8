// SPDX-License-Identifier: MIT
// Names and pictures of the game list.
#include "GameRows.h"
#include "NameBeginning.h"
#include "platform/base/RuntimeFailure.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr qsizetype longestRowText = 30;
} // namespace

QString totalText(int count) {
    return count > 9999 ? QStringLiteral("+9999")
                        : QString::number(count).rightJustified(4, QLatin1Char('0'));
}

GameIcon GameRows::iconOfKind(std::string_view kind) {
    if (kind == "zip") return GameIcon::archive;
    if (kind == "gb") return GameIcon::classic;
    if (kind == "gbc" || kind == "cgb") return GameIcon::colour;
    if (kind == "gba" || kind == "agb") return GameIcon::advance;
    return GameIcon::none;
}

GameIcon GameRows::iconOfSize(qint64 bytes) {
    const double kilobytes = static_cast<double>(bytes) / 1000.0;
    if (kilobytes == 1024.0) return GameIcon::advance;
    if (kilobytes > 1024.0 && kilobytes < 2048.0) return GameIcon::classic;
    return kilobytes > 2048.0 ? GameIcon::colour : GameIcon::none;
}

GameRows::GameRows(std::shared_ptr<const FolderNames> names, int count, LengthOf lengthOf, const NameCut& cut)
    : m_names(std::move(names)), m_count(std::min(count, m_names->count())), m_lengthOf(std::move(lengthOf)),
      m_cut(cut) {}

// A file without an icon of its own repeats that of the row above.
GameIcon GameRows::iconAfter(GameIcon above, int row) const {
    const std::string_view kind = m_cut.secondPieceOf(m_names->bytes(row));
    GameIcon own = iconOfKind(kind);
    if (kind == "bin") ignoring([&] { own = iconOfSize(m_lengthOf(m_names->name(row))); });
    return own == GameIcon::none ? above : own;
}

int GameRows::icon(int row) const {
    for (int known = static_cast<int>(m_icons.size()); known <= row; ++known) {
        m_icons.push_back(iconAfter(known == 0 ? GameIcon::none : m_icons.back(), known));
    }
    return static_cast<int>(m_icons[static_cast<size_t>(row)]);
}

QString GameRows::text(int row, int) const {
    const QString name = m_cut.firstPiece(m_names->name(row));
    // The cut must not split a surrogate pair.
    const bool cutsPair = name.size() > longestRowText && name[longestRowText - 1].isHighSurrogate() &&
                          name[longestRowText].isLowSurrogate();
    return name.left(cutsPair ? longestRowText - 1 : longestRowText);
}

// The text of a row ends where its file name is cut, or earlier.
int GameRows::firstWith(const QString& beginning) const {
    if (beginning.size() > longestRowText) return -1;
    const NameBeginning wanted(beginning);
    for (int row = 0; row < m_count; ++row) {
        if (wanted.fits(m_cut.firstPieceOf(m_names->bytes(row)))) return row;
    }
    return -1;
}

} // namespace torvane
