// SPDX-License-Identifier: MIT
// Rows as JSON: one object a line, in UTF-8.
#pragma once

#include "Output.h"
#include "RowWriter.h"

#include <string>

namespace torvane {

/// Bytes of a name that are not UTF-8 become escapes of lone low surrogates, from \udc80 for 80 to \udcff for
/// FF: Python's "surrogateescape" makes the same bytes of them. A missing value is null.
class JsonRows : public RowWriter {
public:
    JsonRows(const Columns& columns, Output& output);

    void add(const Row& row) override;

private:
    void addValue(const Field& field);
    void addString(const QByteArray& bytes);
    void addEscaped(const QByteArray& bytes);

    std::vector<std::string> m_keys; // each with all that precedes its value
    Output& m_output;
    std::string m_line; // appending to Qt's byte arrays takes three times as long
};

} // namespace torvane
