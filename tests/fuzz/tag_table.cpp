// SPDX-License-Identifier: MIT
// Tables of tags, of any bytes: the rows are those of a plain reading, they survive being printed and read
// again, and what becomes a tag is read back as it was given.
// Input: the company of the present tag, and the table.
#include "Fuzz.h"
#include "tags/edits/TagTable.h"

#include <map>
#include <vector>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
using Cells = std::vector<std::string>;

Cells cutAt(const std::string& text, char separator) {
    Cells pieces(1);
    for (const char c : text) {
        if (c == separator) {
            pieces.emplace_back();
        } else {
            pieces.back() += c;
        }
    }
    return pieces;
}

// False if a backslash stands before anything that it must not stand before.
bool unescape(std::string& cell) {
    static const std::map<char, char> letters{
        {'t', '\t'}, {'n', '\n'}, {'r', '\r'}, {'0', '\0'}, {'\\', '\\'}};
    std::string plain;
    for (size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] != '\\') {
            plain += cell[i];
            continue;
        }
        const auto letter = i + 1 < cell.size() ? letters.find(cell[++i]) : letters.end();
        if (letter == letters.end()) return false;
        plain += letter->second;
    }
    cell = plain;
    return true;
}

std::string escaped(const std::string& text) {
    std::string cell;
    for (const char c : text) {
        const size_t at = std::string("\t\n\r\0\\", 5).find(c);
        cell += at == std::string::npos ? std::string(1, c) : std::string("\\") + "tnr0\\"[at];
    }
    return cell;
}

std::vector<std::string> linesOf(std::string table) {
    if (table.substr(0, 3) == "\xEF\xBB\xBF") table.erase(0, 3);
    std::vector<std::string> lines = cutAt(table, '\n');
    for (std::string& line : lines) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
    }
    return lines;
}

// The values of a good row by the names of their columns; empty for a bad one.
std::map<std::string, std::string> valuesOf(const std::string& line, const Cells& columns) {
    std::map<std::string, std::string> values;
    Cells cells = cutAt(line, '\t');
    if (cells.size() > columns.size()) return {};
    for (size_t i = 0; i < cells.size(); ++i) {
        if (!unescape(cells[i])) return {};
        values[columns[i]] = cells[i];
    }
    const std::string& file = values["file"];
    const bool isGood = !file.empty() && file.find('\0') == file.npos;
    return isGood ? values : std::map<std::string, std::string>();
}

void checkText(const std::optional<QByteArray>& given, const std::string& expected) {
    require(given.has_value() != expected.empty(), "an empty field is not given");
    require(!given || given->toStdString() == expected, "a field is that of a plain reading");
}

void checkRow(const TagTable::Row& row, const std::map<std::string, std::string>& values) {
    require(row.fault.isEmpty() != values.empty(), "a row is bad in a plain reading, too");
    if (values.empty()) return;
    const auto value = [&](const char* name) {
        const auto found = values.find(name);
        return found == values.end() ? std::string() : found->second;
    };
    require(row.file.toStdString() == value("file"), "the file is that of a plain reading");
    checkText(row.tag.title, value("title"));
    checkText(row.tag.company, value("company"));
    checkText(row.tag.info, value("info"));
    checkText(row.tag.date, value("date"));
}

// Prints a row and reads it again.
void checkAgain(const TagTable::Row& row) {
    const auto cell = [](const std::optional<QByteArray>& text) {
        return escaped(text.value_or(QByteArray()).toStdString());
    };
    const std::string table = "file\ttitle\tcompany\tinfo\tdate\r\n" + cell(row.file) + '\t' +
                              cell(row.tag.title) + '\t' + cell(row.tag.company) + '\t' + cell(row.tag.info) +
                              '\t' + cell(row.tag.date);
    const auto again = TagTable(QByteArray::fromStdString(table)).next();
    require(again && again->fault.isEmpty() && again->file == row.file && again->tag.title == row.tag.title &&
                again->tag.company == row.tag.company && again->tag.info == row.tag.info &&
                again->tag.date == row.tag.date,
            "a row that is printed is read again");
}

void checkTag(const GivenTag& given, const QByteArray& company) {
    const TagWindow::Tag present{{company, "T", "D", "I", "3000"}, 3, 3000};
    const GivenTag::Result result = given.over(present, 4000, "1/2/03");
    if (!result.fault.isEmpty() || !result.isNew) return;
    const QByteArray line = TagLine::build(result.fields);
    require(line.size() <= 1025, "a tag that is not refused can be read");
    const TagLine::Fields& wanted = result.fields;
    const TagLine::Fields read = TagLine::fields(TagLine::tagPart(line));
    require(read.title == wanted.title && read.info == wanted.info && read.date == wanted.date &&
                read.company == wanted.company && read.size == "3002",
            "a tag is read as it was given");
}
} // namespace

FUZZ_TARGET(tag_table) {
    Input input(data, size);
    // As a selection reads it: a company has no separator, but for that of the shifted form.
    const QByteArray company = input.byte() % 8 == 0 ? TagLine::shiftedCompany : QByteArray("C\x81\n");
    const QByteArray bytes = input.rest();
    TagTable table(bytes);
    const std::vector<std::string> lines = linesOf(bytes.toStdString());
    const Cells columns = cutAt(lines.front(), '\t');
    for (size_t i = 1; i < lines.size() && table.fault().isEmpty(); ++i) {
        if (lines[i].empty()) continue;
        const auto row = table.next();
        require(row && row->line == static_cast<int>(i) + 1, "no row is left out");
        checkRow(*row, valuesOf(lines[i], columns));
        if (!row->fault.isEmpty()) continue;
        checkAgain(*row);
        checkTag(row->tag, company);
    }
    require(!table.next(), "there are no other rows");
    return 0;
}
