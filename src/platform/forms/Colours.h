// SPDX-License-Identifier: MIT
// Colour words: 0xBBGGRR, or with the top bit set the index of a system colour.
#pragma once

#include <QColor>
#include <cstdint>

namespace torvane {

using OleColour = std::uint32_t;

namespace Colours {

constexpr OleColour black = 0x000000;
constexpr OleColour white = 0xFFFFFF;
constexpr OleColour system(int index) { return 0x80000000U | static_cast<OleColour>(index); }
constexpr OleColour buttonFace = system(15);
constexpr OleColour buttonText = system(18);
constexpr OleColour windowBack = system(5);
constexpr OleColour windowText = system(8);

/// The plain 0xBBGGRR word of a colour; system colours come from a table of the classic desktop, so that
/// the skin looks the same under every desktop theme. An unknown index is black.
OleColour translate(OleColour colour);
/// The same as a Qt colour.
QColor toQColor(OleColour colour);

} // namespace Colours
} // namespace torvane
