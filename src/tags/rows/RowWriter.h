// SPDX-License-Identifier: MIT
// Prints rows in one of the forms that a user can ask for.
#pragma once

#include "Field.h"

namespace torvane {

class RowWriter {
public:
    virtual ~RowWriter() = default;
    /// Takes a row, with a field for each column.
    virtual void add(const Row& row) = 0;
    /// Prints what was kept back: to be called after the last row.
    virtual void finish() {}
    /// Whether rows are printed as they come.
    virtual bool isStreaming() const { return true; }
};

} // namespace torvane
