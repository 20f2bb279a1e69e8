// SPDX-License-Identifier: MIT
// Counting and printing.
#include "Tally.h"

#include <algorithm>
#include <cstdio>

namespace torvane::faults {

namespace {
constexpr int mostShown = 30; // one defect appears in hundreds of cases
} // namespace

void Tally::add(const std::string& operation, bool wasKilled, const std::vector<std::string>& violations,
                const std::string& where) {
    Row& row = m_rows[operation];
    ++row.cases;
    if (wasKilled) ++row.kills;
    if (violations.empty()) return;
    ++row.violations;
    for (const std::string& violation : violations) {
        if (m_shown++ < mostShown) std::printf("VIOLATION: %s: %s\n", where.c_str(), violation.c_str());
    }
    std::fflush(stdout);
}

void Tally::print(const std::string& title) const {
    std::printf("\n| %s | cases | of them killed | states of the disk | violations |\n", title.c_str());
    std::printf("|---|--:|--:|--:|--:|\n");
    Row sum;
    for (const auto& [operation, row] : m_rows) {
        std::printf("| %s | %ld | %ld | %ld | %ld |\n", operation.c_str(), row.cases, row.kills, row.states,
                    row.violations);
        sum.cases += row.cases;
        sum.kills += row.kills;
        sum.states += row.states;
        sum.violations += row.violations;
    }
    std::printf("| all | %ld | %ld | %ld | %ld |\n", sum.cases, sum.kills, sum.states, sum.violations);
    std::fflush(stdout);
}

bool Tally::isClean() const {
    return !m_rows.empty() && std::all_of(m_rows.begin(), m_rows.end(),
                                          [](const auto& row) { return row.second.violations == 0; });
}

} // namespace torvane::faults
