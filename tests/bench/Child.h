// SPDX-License-Identifier: MIT
// Runs one of the measuring programs and parses what it prints.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace torvane::bench {

/// The values that a program reported, by name. "started" is the monotonic time just before its start, in ns.
using Values = std::map<std::string, double>;

/// Runs a program (path and arguments) with the settings of a configuration folder and waits for its end.
/// Fails with std::runtime_error if it can't be started or ends with a code other than 0.
Values run(const std::vector<std::string>& command, const std::string& configurationFolder);

} // namespace torvane::bench
