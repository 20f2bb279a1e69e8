// SPDX-License-Identifier: MIT
// The database file and the filter, of any bytes: the rows are those of a plain reading line by line.
// Input: the boxes and options, the form of dates, the texts of author, game, company and age, and the file.
#include "Fuzz.h"
#include "support/OnlineDbComparison.h"

#include <array>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr std::array<const char*, 6> forms = {"d/M/yyyy",   "M/d/yy",     "dd/MM/yy",
                                              "yyyy-MM-dd", "d MMM yyyy", "d.MM.yy 'of'."};

model::Filter filterIn(Input& input) {
    const int choices = input.byte();
    model::Filter filter;
    filter.byn = (choices & 1) == 0;
    filter.color = (choices & 2) == 0;
    filter.advance = (choices & 4) == 0;
    filter.kind = std::array{"ALL", "SYSTEM", "USER", "ALL"}[static_cast<size_t>(choices >> 3 & 3)];
    filter.isForeign = (choices & 224) == 224;
    filter.author = input.piece().toStdString();
    filter.game = input.piece().toStdString();
    filter.company = input.piece().toStdString();
    filter.age = input.piece().toStdString();
    return filter;
}
} // namespace

FUZZ_TARGET(online_db) {
    Input input(data, size);
    const std::string form = forms[static_cast<size_t>(input.byte()) % forms.size()];
    const model::Filter filter = filterIn(input);
    const QByteArray file = input.rest();
    const QDate today(2026, 11, 22);
    const auto rows = filterLines(file, model::boxesOf(filter), today, QString::fromStdString(form));
    require(model::shows(*rows, model::filtered(file.toStdString(), filter, today, form)),
            "the rows are those of the model");
    return 0;
}
