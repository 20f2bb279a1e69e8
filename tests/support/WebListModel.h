// SPDX-License-Identifier: MIT
// A second, plain implementation of the web lists, line by line and piece by piece. It shares no code with
// the program; random bytes compare the program with it.
#pragma once

#include "OnlineDbModel.h"

namespace torvane::model {

struct WebRow {
    std::string name;
    int icon;
    size_t line;
    bool operator==(const WebRow&) const = default;
};
struct WebLists {
    std::vector<WebRow> rows;
    std::vector<std::string> texts;
};

inline WebLists webLists(const std::vector<std::string>& files) {
    WebLists lists;
    size_t number = 0;
    std::string kind;
    for (const std::string& file : files) {
        std::vector<std::string> lines = linesOf(file);
        // A line end at the end of a file begins no further line.
        if (lines.back().empty()) lines.pop_back();
        for (const std::string& line : lines) {
            const size_t place = number++;
            if (line.empty()) continue;
            const std::vector<std::string> fields = reference::cut(line, ";");
            if (fields.size() > 2) {
                kind = fields[2];
                lists.texts.push_back(fields[0] + std::string(200, ' ') + '$' + fields[1] + '$' + fields[2]);
            }
            lists.rows.push_back({fields[0], kind == "system" ? 1 : kind == "perso" ? 2 : 0, place});
        }
    }
    return lists;
}

/// The file after the deletion of the entry of a text; nothing if it fails.
inline std::optional<std::string> withoutEntry(const std::string& file, const std::string& text) {
    const std::vector<std::string> pieces = reference::cut(text, "$");
    const std::string name = reference::cut(text, std::string(200, ' '))[0];
    const std::vector<std::string> parts =
        reference::cut(file, name + ';' + pieces.at(1) + ';' + pieces.at(2));
    if (parts.size() < 2) return std::nullopt;
    return parts[0] + "\r\n" + parts[1] + "\r\n";
}

} // namespace torvane::model
