// SPDX-License-Identifier: MIT
// Rows as lines of fields with tabs between them, under a line with the names of the columns.
#pragma once

#include "Output.h"
#include "RowWriter.h"

#include <string>

namespace torvane {

/// Tabs, line ends, zero bytes and backslashes inside a field are written as \t, \n, \r, \0 and \\; every
/// other byte stays as it is. A missing value is empty.
class TsvRows : public RowWriter {
public:
    /// Prints the line with the names.
    TsvRows(const Columns& columns, Output& output);

    void add(const Row& row) override;

private:
    void addField(const Field& field);

    Output& m_output;
    std::string m_line; // appending to Qt's byte arrays takes three times as long
};

} // namespace torvane
