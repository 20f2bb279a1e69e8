// SPDX-License-Identifier: MIT
// Rows as a table with aligned columns, for people. It keeps all rows until the widths are known.
#pragma once

#include "Output.h"
#include "RowWriter.h"

#include <string>

namespace torvane {

/// Lines are cut to the width of the terminal; elsewhere they are whole.
class TableRows : public RowWriter {
public:
    TableRows(const Columns& columns, Output& output);

    void add(const Row& row) override;
    void finish() override;
    bool isStreaming() const override { return false; }

private:
    struct Cell {
        quint32 length; // in bytes
        int width;      // in cells of a terminal
    };
    void addCell(size_t column, const QByteArray& shown);
    QByteArray padded(size_t column, const QByteArray& shown, int width) const;

    Columns m_columns;
    Output& m_output;
    std::vector<int> m_widths;
    std::string m_text; // of all cells, without anything in between
    std::vector<Cell> m_cells;
};

} // namespace torvane
