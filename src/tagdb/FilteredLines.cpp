// SPDX-License-Identifier: MIT
// One pass over the bytes of the file. It copies nothing: of each line it notes where the values start, and
// looks at the values only as far as the tests need.
#include "FilteredLines.h"
#include "EntryAge.h"
#include "FieldEnds.h"
#include "platform/base/CodePage1252.h"

#include <algorithm>

namespace torvane {

namespace {
bool isSeparated(QByteArrayView text) { return std::any_of(text.begin(), text.end(), endsField); }

// Compares the value at an offset with a text, one byte after the other: most differ in the first.
template <typename Fold>
bool equals(QByteArrayView file, qsizetype start, QByteArrayView text, Fold fold) {
    const qsizetype end = start + text.size();
    if (end > file.size()) return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (fold(file[start + i]) != text[i]) return false;
    }
    return end == file.size() || endsField(file[end]);
}

// The text of a filter box.
class WantedText {
public:
    explicit WantedText(const QString& text)
        : m_upper(CodePage1252::upper(CodePage1252::toBytes(text))),
          m_isPossible(CodePage1252::holds(text) && !isSeparated(m_upper)) {}

    bool passes(QByteArrayView file, qsizetype start) const {
        if (m_upper.isEmpty()) return true;
        return m_isPossible &&
               equals(file, start, m_upper, [](char byte) { return CodePage1252::upper(byte); });
    }

private:
    QByteArray m_upper;
    bool m_isPossible;
};

QString wordOf(OnlineDbFilter::Kind kind) {
    switch (kind) {
    case OnlineDbFilter::Kind::system: return QStringLiteral("SYSTEM");
    case OnlineDbFilter::Kind::user: return QStringLiteral("USER");
    case OnlineDbFilter::Kind::all: break;
    }
    return {};
}

// All tests of a line.
class LineTests {
public:
    LineTests(const OnlineDbFilter& filter, const QDate& today, const QString& shortDateFormat)
        : m_systems{filter.GB_CL ? "byn" : "no", filter.GB_CO ? "color" : "no",
                    filter.GB_AD ? "advance" : "no"},
          m_title(filter.game), m_company(filter.company), m_author(filter.author),
          m_kind(wordOf(filter.kind)), m_age(filter.date, today, shortDateFormat) {}

    bool pass(QByteArrayView file, const FieldStarts& starts) const {
        return hasSystem(file, starts[systemField]) && m_title.passes(file, starts[titleField]) &&
               m_company.passes(file, starts[companyField]) && hasAge(file, starts[dateField]) &&
               m_author.passes(file, starts[authorField]) && m_kind.passes(file, starts[kindField]);
    }

private:
    bool hasSystem(QByteArrayView file, qsizetype start) const {
        return std::any_of(m_systems.begin(), m_systems.end(), [&](QByteArrayView word) {
            return equals(file, start, word, [](char byte) { return byte; });
        });
    }
    bool hasAge(QByteArrayView file, qsizetype start) const {
        return m_age.passesAll() || m_age.passes(valueAt(file, start));
    }

    std::array<QByteArrayView, 3> m_systems;
    WantedText m_title, m_company, m_author, m_kind;
    EntryAge m_age;
};

class LineReader {
public:
    LineReader(const QByteArray& file, const LineTests& tests)
        : m_file(file), m_tests(tests), m_rows(std::make_shared<OnlineDbRows>(file)) {
        // At the end of the file every value is empty.
        m_starts.fill(static_cast<quint32>(file.size()));
        m_starts[systemField] = 0;
    }

    std::shared_ptr<OnlineDbRows> read() {
        forEachFieldEnd(m_file, [this](qsizetype at) { endValue(at); });
        endLine(m_file.size());
        return m_rows;
    }

private:
    void endValue(qsizetype at) {
        const auto next = static_cast<quint32>(at + 1);
        if (m_file[at] == fieldSeparator) {
            if (m_fields < fieldCount) m_starts[static_cast<size_t>(m_fields++)] = next;
            return;
        }
        endLine(at);
        m_starts[systemField] = next;
        m_fields = 1;
    }
    // Empty lines are skipped, such as that between CR and LF. No system is a single blank, so it needs no
    // test.
    void endLine(qsizetype at) {
        if (m_starts[systemField] == at || !m_tests.pass(m_file, m_starts)) return;
        m_rows->appendLine(m_starts, m_fields);
    }

    QByteArrayView m_file;
    const LineTests& m_tests;
    std::shared_ptr<OnlineDbRows> m_rows;
    FieldStarts m_starts;
    int m_fields = 1;
};
} // namespace

std::shared_ptr<OnlineDbRows> filterLines(QByteArray file, const OnlineDbFilter& filter, const QDate& today,
                                          const QString& shortDateFormat) {
    const LineTests tests(filter, today, shortDateFormat);
    return LineReader(file, tests).read();
}

} // namespace torvane
