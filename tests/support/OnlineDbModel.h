// SPDX-License-Identifier: MIT
// A second, plain implementation of the filter of the tag database, line by line and value by value. It
// shares no code with the program; tests with generated files and with random bytes compare the program with
// it.
#pragma once

#include "TagReference.h"

#include <QDate>
#include <QString>
#include <array>
#include <set>

namespace torvane::model {

/// The seven values of a line, in the order of the file.
using Values = std::array<std::string, 7>;

struct Filter {
    bool byn = true, color = true, advance = true;
    std::string kind = "ALL"; ///< or SYSTEM, or USER
    std::string author, game, company;
    std::string age;
    bool isForeign = false; ///< the game is a text that the code page can't hold
};

/// CR LF, LF and CR end a line.
inline std::vector<std::string> linesOf(const std::string& file) {
    std::vector<std::string> lines(1);
    for (size_t i = 0; i < file.size(); ++i) {
        const bool isPair = file[i] == '\r' && i + 1 < file.size() && file[i + 1] == '\n';
        if (file[i] == '\r' || file[i] == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += file[i];
        }
        if (isPair) ++i;
    }
    return lines;
}

inline std::string upper(std::string text) {
    static const std::string capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ\x8A\x8C\x8E\x9F"
                                        "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
                                        "\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD\xDE";
    static const std::string letters = "abcdefghijklmnopqrstuvwxyz\x9A\x9C\x9E\xFF"
                                       "\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
                                       "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF8\xF9\xFA\xFB\xFC\xFD\xFE";
    for (char& c : text) {
        const size_t at = letters.find(c);
        if (at != std::string::npos) c = capitals[at];
    }
    return text;
}

/// All texts that mean a day: as the forms write it, and with one digit or two for day and month.
inline std::set<std::string> textsOf(const QDate& day, const std::string& shortForm) {
    std::set<std::string> texts;
    for (const std::string& form : {shortForm, std::string("d/M/yyyy"), std::string("yyyy-MM-dd")}) {
        texts.insert(day.toString(QString::fromStdString(form)).toStdString());
        for (const char* month : {"M", "MM"}) {
            for (const char* number : {"d", "dd"}) {
                QString other = QString::fromStdString(form);
                if (!other.contains(QStringLiteral("MMM")))
                    other.replace(other.indexOf(u'M'), other.count(u'M'), QString::fromLatin1(month));
                other.replace(other.indexOf(u'd'), other.count(u'd'), QString::fromLatin1(number));
                texts.insert(day.toString(other).toStdString());
            }
        }
    }
    return texts;
}

/// The dates that pass; nothing if all do.
inline std::optional<std::set<std::string>> datesOf(const std::string& age, const QDate& today,
                                                    const std::string& shortForm) {
    const std::optional<double> days = reference::numberIn(age);
    if (!days) return std::nullopt;
    const double day = std::floor(static_cast<double>(today.toJulianDay()) - *days);
    if (std::fabs(day) > 1e9) return std::nullopt;
    const QDate date = QDate::fromJulianDay(static_cast<qint64>(day));
    if (date < QDate(100, 1, 1) || date > QDate(9999, 12, 31)) return std::nullopt;
    return textsOf(date, shortForm);
}

inline bool matches(const std::string& value, const std::string& wanted) {
    return wanted.empty() || upper(value) == upper(wanted);
}

/// The values of each line that passes.
inline std::vector<Values> filtered(const std::string& file, const Filter& filter, const QDate& today,
                                    const std::string& shortForm) {
    const auto dates = datesOf(filter.age, today, shortForm);
    std::vector<Values> passed;
    Values values;
    for (const std::string& line : linesOf(file)) {
        if (line.empty() || line == " ") continue;
        const std::vector<std::string> pieces = reference::cut(line, reference::separator);
        for (size_t i = 0; i < pieces.size() && i < values.size(); ++i) values[i] = pieces[i];
        values[5] = upper(values[5]);
        const std::string classic = filter.byn ? "byn" : "no";
        const std::string colour = filter.color ? "color" : "no";
        const std::string advance = filter.advance ? "advance" : "no";
        if (values[0] != classic && values[0] != colour && values[0] != advance) continue;
        if (filter.isForeign || !matches(values[1], filter.game)) continue;
        if (!matches(values[2], filter.company)) continue;
        if (dates && dates->count(values[3]) == 0) continue;
        if (!matches(values[6], filter.author)) continue;
        if (filter.kind != "ALL" && filter.kind != values[5]) continue;
        passed.push_back(values);
    }
    return passed;
}

} // namespace torvane::model
