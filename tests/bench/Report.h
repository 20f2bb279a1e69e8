// SPDX-License-Identifier: MIT
// The results of a run: samples by name, their medians, and the table that compares values with limits.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace torvane::bench {

class Report {
public:
    /// Adds a sample to a series.
    void sample(const std::string& series, double value) { m_samples[series].push_back(value); }
    /// The median of a series, which must not be empty.
    double median(const std::string& series) const;

    /// Prints the head of the table.
    static void printHead();
    /// Prints a row: what was measured, and its value against the limit, which it must not exceed. The detail
    /// gives the parts of the value.
    void row(const std::string& what, double value, double limit, const std::string& detail);
    /// Whether all rows so far kept their limits.
    bool allKept() const { return m_allKept; }

private:
    std::map<std::string, std::vector<double>> m_samples;
    bool m_allKept = true;
};

} // namespace torvane::bench
