// SPDX-License-Identifier: MIT
// Medians and rows.
#include "Report.h"

#include <algorithm>
#include <cstdio>

namespace torvane::bench {

double Report::median(const std::string& series) const {
    std::vector<double> sorted = m_samples.at(series);
    std::sort(sorted.begin(), sorted.end());
    const size_t middle = sorted.size() / 2;
    return sorted.size() % 2 == 1 ? sorted[middle] : (sorted[middle - 1] + sorted[middle]) / 2;
}

void Report::printHead() {
    std::printf("%-52s %8s %8s        %s\n", "Measured", "value", "limit", "made of");
}

void Report::row(const std::string& what, double value, double limit, const std::string& detail) {
    const bool kept = value <= limit;
    m_allKept = m_allKept && kept;
    std::printf("%-52s %8.2f %8.2f %-6s %s\n", what.c_str(), value, limit, kept ? "ok" : "MISSED",
                detail.c_str());
    std::fflush(stdout);
}

} // namespace torvane::bench
