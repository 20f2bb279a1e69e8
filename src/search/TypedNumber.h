// SPDX-License-Identifier: MIT
// What a user types into the box for a game's number.
#pragma once

#include <QString>

namespace torvane {

struct TypedNumber {
    double value;     ///< as typed: a fraction is not rounded
    int row;          ///< the value as a whole number of 16 bits, rounded half to even
    qsizetype length; ///< of the text in characters, blanks and leading zeros included

    /// Reads the text by the rule for the numbers of tags (see NumberText). Fails with typeMismatch for a
    /// text that holds no number, and with overflow for one that does not fit 16 bits.
    static TypedNumber read(const QString& text);
};

} // namespace torvane
