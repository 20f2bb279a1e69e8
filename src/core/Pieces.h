// SPDX-License-Identifier: MIT
// The program's way to cut names: at every ".", so that "the extension" is the second piece of a name
// and not the last one.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <string_view>

namespace torvane {

/// The piece between the first and the second "."; empty if there is no ".".
inline QString secondPiece(const QString& text) { return text.section(QLatin1Char('.'), 1, 1); }

/// The piece before the first "."; the whole text if there is no ".".
inline QString firstPiece(const QString& text) { return text.section(QLatin1Char('.'), 0, 0); }

/// The second piece of a name in bytes, without a copy.
inline std::string_view secondPieceOf(QByteArrayView bytes) {
    const std::string_view name(bytes.data(), static_cast<size_t>(bytes.size()));
    const size_t first = name.find('.');
    if (first == name.npos) return {};
    const size_t second = name.find('.', first + 1);
    return name.substr(first + 1, second == name.npos ? second : second - first - 1);
}

} // namespace torvane
