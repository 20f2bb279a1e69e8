// SPDX-License-Identifier: MIT
// What was tried and what was found, by operation.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace torvane::faults {

class Tally {
public:
    /// Counts a case of an operation and its violations. `where` identifies the case.
    void add(const std::string& operation, bool wasKilled, const std::vector<std::string>& violations,
             const std::string& where);
    /// Counts disk states that belong to an operation.
    void addStates(const std::string& operation, long count) { m_rows[operation].states += count; }

    /// Prints the table, in Markdown.
    void print(const std::string& title) const;
    bool isClean() const;

private:
    struct Row {
        long cases = 0;
        long kills = 0;
        long states = 0;
        long violations = 0;
    };
    std::map<std::string, Row> m_rows;
    int m_shown = 0;
};

} // namespace torvane::faults
