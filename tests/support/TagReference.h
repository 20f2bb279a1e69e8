// SPDX-License-Identifier: MIT
// A second, plain implementation of the tag format that shares no code with the program. Tests with generated
// tags and with random bytes compare the program with it.
#pragma once

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace torvane::reference {

inline const std::string marker = "ID3TAG\xA7";
inline const std::string separator = "\xA7";
inline const std::string shiftedCompany = "V\xF6\xA7R\xE4N";

/// The pieces of a text between all occurrences of `sign`; one more than there are occurrences.
inline std::vector<std::string> cut(const std::string& text, const std::string& sign) {
    std::vector<std::string> pieces;
    size_t start = 0;
    for (size_t at = text.find(sign); at != std::string::npos; at = text.find(sign, start)) {
        pieces.push_back(text.substr(start, at - start));
        start = at + sign.size();
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

struct Tag {
    std::string company, title, date, info, size;

    bool operator==(const Tag&) const = default;
};

/// The tag after the first marker; nothing if there is no marker or a field is missing.
inline std::optional<Tag> tagIn(const std::string& bytes) {
    const std::vector<std::string> parts = cut(bytes, marker);
    if (parts.size() < 2) return std::nullopt;
    std::vector<std::string> fields = cut(parts[1], separator);
    if (parts[1].compare(0, shiftedCompany.size(), shiftedCompany) == 0) {
        fields.erase(fields.begin());
        fields[0] = shiftedCompany;
    }
    if (fields.size() < 5) return std::nullopt;
    return Tag{fields[0], fields[1], fields[2], fields[3], fields[4]};
}

/// A decimal number, with or without point and exponent, with optional blanks around it; nothing for any
/// other text and for a number out of the range of double.
inline std::optional<double> numberIn(std::string text) {
    const std::string blanks = " \t\n\v\f\r";
    text.erase(0, text.find_first_not_of(blanks));
    text.erase(text.find_last_not_of(blanks) + 1);
    if (text.find_first_not_of("0123456789+-.eE") != std::string::npos) return std::nullopt;
    const size_t sign = text.rfind('+', 0) == 0 && text.rfind("+-", 0) != 0 ? 1 : 0;
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + sign, end, value);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

/// The nearest whole number; of two equally near ones the even one.
inline double halfToEven(double value) {
    const double below = std::floor(value);
    const double over = value - below;
    const bool isBelowEven = std::fmod(below, 2) == 0;
    return over < 0.5 || (over == 0.5 && isBelowEven) ? below : below + 1;
}

/// The image of a tagged file without tag and line end; nothing without a tag or a size of at least 0.
inline std::optional<std::string> imageIn(const std::string& bytes) {
    const std::optional<Tag> tag = tagIn(bytes);
    const std::optional<double> size = tag ? numberIn(tag->size) : std::nullopt;
    if (!size || halfToEven(*size) < 0) return std::nullopt;
    const std::string image = bytes.substr(0, bytes.find(marker));
    if (halfToEven(*size) >= static_cast<double>(image.size())) return image;
    return image.substr(0, static_cast<size_t>(halfToEven(*size)));
}

inline std::string lineOf(const Tag& tag) {
    return marker + tag.company + separator + tag.title + separator + tag.date + separator + tag.info +
           separator + tag.size + separator + "\r\n";
}

} // namespace torvane::reference
