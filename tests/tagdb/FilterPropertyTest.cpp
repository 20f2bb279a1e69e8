// SPDX-License-Identifier: MIT
// Generated files, compared with a plain reading line by line: the rows that pass, and all their values.
// TORVANE_DATABASES sets the number of files.
#include "support/OnlineDbComparison.h"
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
        return below(8) != 0 ? "" : oneOf({"a", "A", "\xE9", " ", "\x9F", "b", "\xA7", "a\xA7"});
    }
    model::Filter filter() {
        model::Filter filter;
        filter.byn = below(5) != 0;
        filter.color = below(5) != 0;
        filter.advance = below(5) != 0;
        filter.kind = oneOf({"ALL", "ALL", "SYSTEM", "USER"});
        filter.author = box();
        filter.game = box();
        filter.company = box();
        filter.isForeign = below(30) == 0;
        if (below(6) == 0) filter.age = oneOf({"3", "2.5", "old", "1e300", "-3", " 3 "});
        return filter;
    }
    std::string form() { return oneOf({"d/M/yyyy", "M/d/yy", "dd/MM/yy", "yyyy-MM-dd", "d MMM yyyy"}); }

private:
    std::mt19937 m_random;
};

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
            const QByteArray bytes = QByteArray::fromStdString(file);
            const auto rows = filterLines(bytes, model::boxesOf(filter), today, QString::fromStdString(form));
            if (!model::shows(*rows, expected)) QFAIL(bytes.toHex());
            (expected.empty() ? dropped : passed) += 1;
        }
        QVERIFY2(passed > fileCount() / 4 && dropped > fileCount() / 10,
                 qPrintable(QStringLiteral("%1 with rows, %2 without").arg(passed).arg(dropped)));
    }
};

TORVANE_APPLESS_TEST(FilterPropertyTest)
#include "FilterPropertyTest.moc"
