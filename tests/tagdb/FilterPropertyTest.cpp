// SPDX-License-Identifier: MIT
// Generated files, compared with a plain reading line by line: the rows that pass, and all their values.
// TORVANE_DATABASES sets the number of files.
#include "FilteredRows.h"
#include "platform/base/CodePage1252.h"
#include "support/OnlineDbModel.h"
#include "support/TestMain.h"

#include <random>

using namespace torvane;

namespace {
constexpr int usualFiles = 20'000;
const QDate today(2026, 11, 22);

int fileCount() {
    const int wanted = qEnvironmentVariableIntValue("TORVANE_DATABASES");
    return wanted > 0 ? wanted : usualFiles;
}

// Generates the words and signs that mean something far more often than by chance.
class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    std::string oneOf(const std::vector<std::string>& texts) {
        return texts[static_cast<size_t>(below(static_cast<int>(texts.size())))];
    }
    std::string bytes(int most) {
        std::string text;
        for (int i = below(most); i > 0; --i) text += static_cast<char>(below(256));
        return text;
    }
    std::string field() {
        switch (below(10)) {
        case 0: return bytes(80);
        case 1: return "";
        case 2: return oneOf({"19/11/2026", "2026-11-19", "11/19/26", "19/11/26", "19 Nov 2026"});
        case 3: return oneOf({"SYSTEM", "user", "System", "USER"});
        default: return oneOf({"a", "A", "\xE9", "\xC9", "b", " ", "\xFF", "\x9F"});
        }
    }
    std::string line() {
        const std::string system =
            oneOf({"byn", "color", "advance", "byn", "color", "advance", "no", "by", "ADVANCE", "", " "});
        std::string text = system;
        const int fields = below(3) == 0 ? below(10) : 6;
        for (int i = 0; i < fields; ++i) text += reference::separator + field();
        return text;
    }
    std::string file() {
        std::string text;
        for (int i = below(12); i > 0; --i) {
            text += below(12) == 0 ? bytes(100) : line();
            text += oneOf({"\r\n", "\r\n", "\n", "\r", "\r\r\n", "\n \n"});
        }
        return below(2) == 0 ? text : text + line();
    }
    std::string box() {
        return below(4) != 0 ? "" : oneOf({"a", "A", "\xE9", " ", "\x9F", "b", "\xA7", "a\xA7"});
    }
    model::Filter filter() {
        model::Filter filter;
        filter.byn = below(4) != 0;
        filter.color = below(4) != 0;
        filter.advance = below(4) != 0;
        filter.kind = oneOf({"ALL", "ALL", "SYSTEM", "USER"});
        filter.author = box();
        filter.game = box();
        filter.company = box();
        if (below(3) == 0) filter.age = oneOf({"3", "2.5", "old", "1e300", "-3", " 3 "});
        return filter;
    }
    std::string form() { return oneOf({"d/M/yyyy", "M/d/yy", "dd/MM/yy", "yyyy-MM-dd", "d MMM yyyy"}); }

private:
    std::mt19937 m_random;
};

QByteArray bytes(const std::string& text) { return QByteArray::fromStdString(text); }
QString text(const std::string& bytesOf) { return CodePage1252::fromBytes(bytes(bytesOf)); }

OnlineDbFilter boxesOf(const model::Filter& filter) {
    using Kind = OnlineDbFilter::Kind;
    const Kind kind = filter.kind == "ALL" ? Kind::all : filter.kind == "USER" ? Kind::user : Kind::system;
    return {filter.byn,          filter.color,      filter.advance,   kind,
            text(filter.author), text(filter.game), text(filter.age), text(filter.company)};
}

model::Values valuesOf(const OnlineDbEntry& entry) {
    return {entry.System.toStdString(), entry.Title.toStdString(), entry.Company.toStdString(),
            entry.Date.toStdString(),   entry.Info.toStdString(),  entry.Kind.toStdString(),
            entry.Author.toStdString()};
}

std::vector<model::Values> valuesOf(const OnlineDbRows& rows) {
    std::vector<model::Values> all;
    for (int row = 0; row < rows.count(); ++row) all.push_back(valuesOf(rows.entry(row)));
    return all;
}

bool showsValues(const OnlineDbRows& rows, int row, const model::Values& values) {
    const QStringList expected = {text(values[1]), text(values[2]), text(values[3]),
                                  text(values[5]), text(values[6]), text(values[4])};
    const int icon = values[0] == "byn" ? 1 : values[0] == "color" ? 2 : values[0] == "advance" ? 3 : 0;
    return rowTexts(rows, row) == expected && rows.icon(row) == icon;
}
} // namespace

class FilterPropertyTest : public QObject {
    Q_OBJECT

private slots:
    void any_file_is_filtered_like_the_model() {
        Generator generator(1989);
        int passed = 0;
        int dropped = 0;
        for (int i = fileCount(); i > 0; --i) {
            const std::string file = generator.file();
            const model::Filter filter = generator.filter();
            const std::string form = generator.form();
            const std::vector<model::Values> expected = model::filtered(file, filter, today, form);
            const auto rows = filterLines(bytes(file), boxesOf(filter), today, QString::fromStdString(form));
            if (valuesOf(*rows) != expected) QFAIL(bytes(file).toHex());
            for (int row = 0; row < rows->count(); ++row) {
                if (!showsValues(*rows, row, expected[static_cast<size_t>(row)])) QFAIL(bytes(file).toHex());
            }
            (expected.empty() ? dropped : passed) += 1;
        }
        QVERIFY2(passed > fileCount() / 4 && dropped > fileCount() / 10, "the generator is too one-sided");
    }
};

TORVANE_APPLESS_TEST(FilterPropertyTest)
#include "FilterPropertyTest.moc"
