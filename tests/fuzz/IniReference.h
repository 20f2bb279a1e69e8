// SPDX-License-Identifier: MIT
// All values of an INI file, read line by line in the simplest way.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace torvane::fuzz {

/// Values by section and key, both in lower case (ASCII).
using IniValues = std::map<std::pair<std::string, std::string>, std::string>;

inline std::string lowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

inline std::string trimmed(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t");
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Reads lines in order, so that of a repeated key the last one counts. Zero bytes count as blanks, and byte
/// order marks at the start of a line are ignored.
inline IniValues iniValues(std::string bytes) {
    std::replace(bytes.begin(), bytes.end(), '\0', ' ');
    IniValues values;
    std::string section;
    for (size_t start = 0; start < bytes.size();) {
        const size_t end = std::min(bytes.find_first_of("\r\n", start), bytes.size());
        std::string line = trimmed(bytes.substr(start, end - start));
        start = end + 1;
        while (line.compare(0, 3, "\xEF\xBB\xBF") == 0) line = trimmed(line.substr(3));
        const size_t closed = line.find(']');
        const size_t sign = line.find('=');
        if (line.empty() || line[0] == ';' || line[0] == '#') continue;
        if (line[0] == '[') {
            if (closed != line.npos) section = lowerCase(trimmed(line.substr(1, closed - 1)));
        } else if (sign != line.npos && sign > 0) {
            values[{section, lowerCase(trimmed(line.substr(0, sign)))}] = trimmed(line.substr(sign + 1));
        }
    }
    return values;
}

} // namespace torvane::fuzz
