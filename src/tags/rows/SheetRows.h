// SPDX-License-Identifier: MIT
// Rows as sheets, for people: a line for each field, and an empty line between two rows.
#pragma once

#include "Output.h"
#include "RowWriter.h"

namespace torvane {

class SheetRows : public RowWriter {
public:
    SheetRows(const Columns& columns, Output& output);

    /// Missing values are left out.
    void add(const Row& row) override;

private:
    std::vector<QByteArray> m_labels;
    Output& m_output;
    bool m_isFirst = true;
};

} // namespace torvane
