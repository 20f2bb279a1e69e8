// SPDX-License-Identifier: MIT
// The rows of a list, requested one by one as they are painted: a list of a million rows holds only those
// that it shows.
#pragma once

#include <QString>

namespace torvane {

class RowSource {
public:
    virtual ~RowSource() = default;
    virtual int count() const = 0;
    /// The text of a row in a column, both counted from 0; plain text. A list without columns asks for
    /// column 0.
    virtual QString text(int row, int column) const = 0;
    /// The 1-based index of a row's picture in the list's images; 0 for none.
    virtual int icon(int row) const = 0;
    /// The name by which code knows a row, such as "1file"; empty where rows have none.
    virtual QString key(int row) const {
        Q_UNUSED(row);
        return {};
    }
};

} // namespace torvane
