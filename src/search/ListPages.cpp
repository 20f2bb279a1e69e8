// SPDX-License-Identifier: MIT
// The page arithmetic, way by way.
#include "ListPages.h"

namespace torvane::ListPages {

namespace {
constexpr float firstPage = 33;

qsizetype digitsOf(int number) { return QString::number(number).size(); }

// The first digits of a number, as a number.
int cut(int number, qsizetype digits) { return QString::number(number).left(digits).toInt(); }

float page(int number, float height) { return static_cast<float>(number) * height * -1; }
} // namespace

Top ofTitle(int row, float pageHeight) {
    switch (digitsOf(row)) {
    case 1: return firstPage;
    case 2: return page(cut(row, 1), pageHeight);
    case 3: return page(cut(row, 2), pageHeight);
    case 4: return page(cut(row, 3), pageHeight);
    default: return std::nullopt;
    }
}

// The length is that of the text, whose zeros and blanks count. A text of one character is below 10.
Top ofNumber(const TypedNumber& typed, int row, float pageHeight) {
    if (typed.value < 10) return firstPage;
    if (typed.value == 100) return page(cut(99, 1), pageHeight);
    switch (typed.length) {
    case 2: return page(cut(row - 1, 1), pageHeight);
    case 3: return page(cut(row - 1, 2), pageHeight);
    case 4: return page(cut(row - 1, 3), pageHeight);
    default: return std::nullopt;
    }
}

Top ofLast(int row, float pageHeight) {
    switch (digitsOf(row)) {
    case 1: return firstPage;
    case 2: return page(cut(row - 1, 1), pageHeight);
    case 3: return page(row == 100 ? 10 : cut(row - 1, 2), pageHeight);
    case 4: return page(row == 1000 ? 100 : cut(row - 1, 3), pageHeight);
    default: return std::nullopt;
    }
}

} // namespace torvane::ListPages
