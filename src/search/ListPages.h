// SPDX-License-Identifier: MIT
// Where the game list has to stand to show a game: the page of a row, taken from the decimal digits of the
// row's number. Each way to a game takes them in its own manner, and some lead to another page than that of
// the row. These places are the program's known behaviour; the list shows the row in any case (ListView).
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
