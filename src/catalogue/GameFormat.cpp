// SPDX-License-Identifier: MIT
// Formats by size and by extension.
#include "GameFormat.h"

namespace torvane {

GameFormat formatOfSize(qint32 sizeKB) {
    if (sizeKB >= 1025 && sizeKB < 2048) return {QStringLiteral("GameBoy"), QStringLiteral(".gb")};
    if (sizeKB >= 2049 && sizeKB < 4096) return {QStringLiteral("GameBoy Color"), QStringLiteral(".gbc")};
    if (sizeKB > 4096) return {QStringLiteral("GameBoy Advance"), QStringLiteral(".gba")};
    return {};
}

GameFormat formatOfExtension(const QString& extension) {
    if (extension == QStringLiteral("zip")) return {QStringLiteral("Formato .ZIP"), QStringLiteral(".zip")};
    return {};
}

} // namespace torvane
