// SPDX-License-Identifier: MIT
// From options to writers.
#include "RowFormat.h"
#include "JsonRows.h"
#include "SheetRows.h"
#include "TableRows.h"
#include "TsvRows.h"

namespace torvane::RowFormat {

std::vector<OptionForm> options() { return {{"--json"}, {"--tsv"}}; }

std::unique_ptr<RowWriter> writer(const Arguments& given, Plain plain, const Columns& columns,
                                  Output& output) {
    // Clang 14 can't compile reversed views. NOLINTNEXTLINE(modernize-loop-convert)
    for (auto option = given.options.rbegin(); option != given.options.rend(); ++option) {
        if (option->name == "--json") return std::make_unique<JsonRows>(columns, output);
        if (option->name == "--tsv") return std::make_unique<TsvRows>(columns, output);
    }
    if (plain == Plain::sheets) return std::make_unique<SheetRows>(columns, output);
    return std::make_unique<TableRows>(columns, output);
}

} // namespace torvane::RowFormat
