// SPDX-License-Identifier: MIT
// The program's way to cut file names: at every ".", so that "the extension" is the second piece of a name
// and not the last one; or, if the user wishes so, at the last "." alone. No other code cuts names.
#pragma once

#include <QByteArrayView>
#include <QString>
#include <string_view>

namespace torvane {

/// Where names are cut: one choice for the whole program (see Globals).
class NameCut {
public:
    /// Cuts at every ".".
    constexpr NameCut() = default;
    /// Cuts at the last "." if the text of the setting is "whole", and at every "." for any other text.
    static NameCut chosen(const QString& setting) { return NameCut(setting == QLatin1String("whole")); }
    /// Cuts at the last "." whatever the user wishes: for what a file holds, not for what it is called.
    static constexpr NameCut atTheLastDot() { return NameCut(true); }

    /// The piece before the first cut; the whole text if there is no ".".
    QString firstPiece(const QString& text) const {
        const qsizetype dot = firstCut(text, QLatin1Char('.'));
        return dot < 0 ? text : text.first(dot);
    }
    /// The piece after the first cut, up to the next one; empty if there is no ".".
    QString secondPiece(const QString& text) const {
        const qsizetype dot = firstCut(text, QLatin1Char('.'));
        return dot < 0 ? QString() : text.sliced(dot + 1).section(QLatin1Char('.'), 0, 0);
    }
    /// The first piece of a name in bytes, without a copy.
    std::string_view firstPieceOf(QByteArrayView bytes) const {
        const qsizetype dot = firstCut(bytes, '.');
        return viewOf(dot < 0 ? bytes : bytes.first(dot));
    }
    /// The second piece of a name in bytes, without a copy.
    std::string_view secondPieceOf(QByteArrayView bytes) const {
        const qsizetype dot = firstCut(bytes, '.');
        if (dot < 0) return {};
        const std::string_view rest = viewOf(bytes.sliced(dot + 1));
        return rest.substr(0, rest.find('.'));
    }

private:
    explicit constexpr NameCut(bool isWhole) : m_isWhole(isWhole) {}

    template <typename Text, typename Character>
    qsizetype firstCut(const Text& text, Character dot) const {
        return m_isWhole ? text.lastIndexOf(dot) : text.indexOf(dot);
    }
    static std::string_view viewOf(QByteArrayView bytes) {
        return {bytes.data(), static_cast<size_t>(bytes.size())};
    }

    bool m_isWhole = false;
};

} // namespace torvane
