// SPDX-License-Identifier: MIT
// Filter and filter index of the game dialogs.
#include "GameFilter.h"

namespace torvane {

const QString gameFileFilter =
    QStringLiteral("Todos los formatos|*.gb;*.gba;*.gbc;*.cgb;*.agb;*.bin;*.zip") +
    QStringLiteral("|GameBoy Advance|*.gba;*.agb;*.bin|GameBoy Color|*.gbc;*.cgb|GameBoy Classic|*.gb|") +
    QStringLiteral("ROMs en ZIP|*.zip");

int gameFilterIndex(const QString& fileName, const NameCut& cut) {
    const QString kind = cut.secondPiece(fileName);
    if (kind == QStringLiteral("zip")) return 5;
    if (kind == QStringLiteral("gb")) return 4;
    if (kind == QStringLiteral("gba")) return 2;
    if (kind == QStringLiteral("gbc")) return 3;
    if (kind == QStringLiteral("bin") || kind == QStringLiteral("agb")) return 2;
    return kind == QStringLiteral("cgb") ? 3 : 1;
}

} // namespace torvane
