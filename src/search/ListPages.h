// SPDX-License-Identifier: MIT
// The place of the game list at which it shows a game: the page of a row, taken from the decimal digits of
// the row's number. Each way to a game cuts the digits differently, and some give a page that lacks the row.
// This is the program's known behaviour; the list shows the row in any case (ListView).
#pragma once

#include "TypedNumber.h"

#include <optional>

namespace torvane::ListPages {

/// The place of the list's upper edge in its panel, in pixels; none if the list stays where it is.
using Top = std::optional<float>;

/// Rows are counted from 1, and a page is as high as the panel.
Top ofTitle(int row, float pageHeight);
/// The row is the one that the number has selected.
Top ofNumber(const TypedNumber& typed, int row, float pageHeight);
Top ofLast(int row, float pageHeight);
constexpr float ofFirst = 3;

} // namespace torvane::ListPages
