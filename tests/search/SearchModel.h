// SPDX-License-Identifier: MIT
// A model of the search in the list, written without a look at the program's code: what is marked, selected
// and set by each way, step by step.
#pragma once

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <regex>
#include <string>
#include <vector>

namespace torvane {

class SearchModel {
public:
    std::vector<std::string> titles;
    float height = 330;
    float top = 1;
    int marked = 0;   ///< row, counted from 1
    int selected = 0; ///< index of the game, counted from 0
    bool reports = false;

    /// One run; false if the way broke off.
    bool run(int mode, const std::string& title, const std::string& number) {
        reports = false;
        if (mode == 0) return runTitle(title);
        if (mode == 1) return runNumber(number);
        if (mode == 2) return runLast();
        return runFirst();
    }

    /// The number in a text as the program reads numbers; nothing for other texts and beyond 16 bits.
    static std::optional<double> valueOf(const std::string& text) {
        static const std::regex number(R"([ \t-\r]*([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?)[ \t-\r]*)");
        std::smatch match;
        if (!std::regex_match(text, match, number)) return std::nullopt;
        errno = 0;
        const double value = std::strtod(match[1].str().c_str(), nullptr);
        if (errno == ERANGE) return std::nullopt;
        const double whole = std::rint(value);
        if (!(whole >= -32768 && whole <= 32767)) return std::nullopt;
        return value;
    }

private:
    static std::string decimal(int value) { return std::to_string(value); }
    static float cut(int value, size_t characters) { return std::stof(decimal(value).substr(0, characters)); }
    void set(float value) { top = value; }
    int count() const { return static_cast<int>(titles.size()); }

    bool runTitle(const std::string& title) {
        if (title.empty() || title == " ") return false;
        int found = 0;
        for (int i = 0; i < count() && found == 0; ++i) {
            if (titles[static_cast<size_t>(i)].rfind(title, 0) == 0) found = i + 1;
        }
        if (found == 0) return false;
        marked = found;
        const size_t digits = decimal(marked).size();
        if (digits == 1) set(33);
        if (digits == 2) set(cut(marked, 1) * height * -1);
        if (digits == 3) set(cut(marked, 2) * height * -1);
        if (digits == 4) set(cut(marked, 3) * height * -1);
        return true;
    }
    bool runNumber(const std::string& text) {
        const std::optional<double> value = valueOf(text);
        if (!value) return false;
        const int n = static_cast<int>(std::rint(*value));
        if (n < 1 || n > count()) return false;
        marked = n;
        selected = n - 1;
        if (*value < 10) {
            set(33);
        } else if (*value == 100) {
            set(9 * height * -1);
        } else if (text.size() == 1) {
            set(33);
        } else if (text.size() == 2) {
            set(cut(marked - 1, 1) * height * -1);
        } else if (text.size() == 3) {
            set(cut(marked - 1, 2) * height * -1);
        } else if (text.size() == 4) {
            set(cut(marked - 1, 3) * height * -1);
        }
        return true;
    }
    bool runLast() {
        reports = count() == 0;
        if (reports) return false;
        marked = count();
        selected = count() - 1;
        const size_t digits = decimal(marked).size();
        if (digits == 1) set(33);
        if (digits == 2) set(cut(marked - 1, 1) * height * -1);
        if (digits == 3) set(marked == 100 ? height * 10 * -1 : cut(marked - 1, 2) * height * -1);
        if (digits == 4) set(marked == 1000 ? height * 100 * -1 : cut(marked - 1, 3) * height * -1);
        return true;
    }
    bool runFirst() {
        set(3);
        reports = count() == 0;
        if (reports) return false;
        marked = 1;
        selected = 0;
        return true;
    }
};

} // namespace torvane
