// SPDX-License-Identifier: MIT
// The rows of a list, asked for one by one when they are painted: a list of 100,000 games holds no more
// than what it shows.
#pragma once

#include <QString>

namespace torvane {

class RowSource {
public:
    virtual ~RowSource() = default;
    virtual int count() const = 0;
    /// The text of a row, counted from 0; plain text.
    virtual QString text(int row) const = 0;
    /// The number of a row's picture in the list's images, counted from 1; 0 for none.
    virtual int icon(int row) const = 0;
};

} // namespace torvane
