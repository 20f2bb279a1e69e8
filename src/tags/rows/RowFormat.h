// SPDX-License-Identifier: MIT
// In which form rows are printed, as the options ask for it.
#pragma once

#include "Output.h"
#include "RowWriter.h"
#include "core/Arguments.h"

#include <memory>

namespace torvane::RowFormat {

/// --json and --tsv.
std::vector<OptionForm> options();
/// For people.
enum class Plain {
    table, ///< a line for each row
    sheets ///< a line for each field
};
/// The writer that the options ask for; without any of them the plain form. The later option counts.
std::unique_ptr<RowWriter> writer(const Arguments& given, Plain plain, const Columns& columns,
                                  Output& output);

/// What the help of a command says of these options.
inline constexpr const char* help =
    "      --json  print one JSON object a line\n"
    "      --tsv   print lines with tabs between the fields, under a header\n";

} // namespace torvane::RowFormat
