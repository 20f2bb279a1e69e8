// SPDX-License-Identifier: MIT
// The starter database of the installed tree, read as bytes by a strict parser of this test's own: the
// program's reader skips and repairs in silence what would be a fault here.
#include "support/TestMain.h"

#include <QDate>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringDecoder>
#include <QTest>
#include <algorithm>

namespace torvane {

namespace {
constexpr char separator = '\xA7';
constexpr int longestInfo = 125; // what the main window's field holds
const QByteArrayList consoles = {"byn", "color", "advance"};
const QByteArray demoCompany = "Torvane Demo";

struct DemoEntry {
    QByteArray system, title, company, date, info, kind, author;
};

// Control characters have no place in a text, and five bytes mean nothing in the code page.
bool isForeignInRow(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F || byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 ||
           byte == 0x9D;
}

// The sort key: the console in the order of the list, then the title without regard to case.
std::pair<qsizetype, QString> placeOf(const DemoEntry& entry) {
    return {consoles.indexOf(entry.system), QString::fromLatin1(entry.title).toLower()};
}
} // namespace

class OnlineDatabaseFileTest : public QObject {
    Q_OBJECT

    QByteArray bytes;
    QByteArrayList lines;
    QList<DemoEntry> entries;

    // The titles of the entries at fault.
    template <typename Fault>
    QString titlesWith(Fault fault) const {
        QStringList titles;
        for (const DemoEntry& entry : entries)
            if (fault(entry)) titles.append(QString::fromLatin1(entry.title));
        return titles.join('\n');
    }

private slots:
    void initTestCase() {
        QFile file(TORVANE_TREE_DIR "/data/site/online_db.txt");
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        bytes = file.readAll();
        QVERIFY(bytes.endsWith("\r\n"));
        lines = bytes.chopped(2).replace("\r\n", "\n").split('\n');
        for (const QByteArray& line : std::as_const(lines)) {
            const QByteArrayList fields = line.split(separator);
            QVERIFY2(fields.size() == 7, line);
            entries.append({fields[0], fields[1], fields[2], fields[3], fields[4], fields[5], fields[6]});
        }
    }

    void every_line_ends_in_cr_lf() {
        QCOMPARE(bytes.count("\r\n"), bytes.count('\n'));
        QCOMPARE(bytes.count("\r\n"), bytes.count('\r'));
    }

    void every_byte_is_a_character_of_code_page_1252() {
        for (const QByteArray& line : std::as_const(lines))
            QVERIFY2(std::none_of(line.begin(), line.end(), isForeignInRow), line);
    }

    void accents_are_not_written_in_utf_8() {
        QVERIFY(bytes.contains("Pok\xE9mon"));
        for (const QByteArray& line : std::as_const(lines)) {
            QStringDecoder utf8(QStringDecoder::Utf8);
            const QString asUtf8 = utf8(line);
            QVERIFY2(utf8.hasError() || asUtf8.size() == line.size(), line);
        }
    }

    void no_field_is_empty_or_has_blanks_around_it() {
        for (const QByteArray& line : std::as_const(lines)) {
            for (const QByteArray& field : line.split(separator))
                QVERIFY2(!field.isEmpty() && field.simplified() == field, line);
        }
    }

    void every_entry_names_its_console_kind_and_author() {
        QCOMPARE(titlesWith([](const DemoEntry& e) { return !consoles.contains(e.system); }), QString());
        QCOMPARE(titlesWith([](const DemoEntry& e) { return e.kind != "SYSTEM" || e.author != "torvane"; }),
                 QString());
    }

    void every_date_is_a_day_written_as_day_month_year() {
        QCOMPARE(titlesWith([](const DemoEntry& e) {
                     const QDate date = QDate::fromString(QString::fromLatin1(e.date), "d/M/yyyy");
                     return !date.isValid() || date < QDate(2026, 1, 1);
                 }),
                 QString());
    }

    void every_info_is_a_sentence_that_fits_into_its_field() {
        QCOMPARE(titlesWith([](const DemoEntry& e) {
                     return e.info.size() < 40 || e.info.size() > longestInfo || !e.info.endsWith('.') ||
                            !QChar::isUpper(static_cast<unsigned char>(e.info[0]));
                 }),
                 QString());
    }

    void titles_and_companies_are_short_enough_to_be_read_in_the_list() {
        QCOMPARE(titlesWith([](const DemoEntry& e) { return e.title.size() > 60 || e.company.size() > 30; }),
                 QString());
    }

    void no_game_is_there_twice() {
        QSet<QByteArray> seen;
        QCOMPARE(titlesWith([&](const DemoEntry& e) {
                     const QByteArray id = e.system + separator + e.title.toLower();
                     const bool twice = seen.contains(id);
                     seen.insert(id);
                     return twice;
                 }),
                 QString());
    }

    void no_sentence_is_there_twice() {
        QSet<QByteArray> seen;
        QCOMPARE(titlesWith([&](const DemoEntry& e) {
                     const bool twice = seen.contains(e.info);
                     seen.insert(e.info);
                     return twice;
                 }),
                 QString());
    }

    void entries_are_sorted_by_console_and_title() {
        for (qsizetype i = 1; i < entries.size(); ++i)
            QVERIFY2(placeOf(entries[i - 1]) < placeOf(entries[i]), entries[i].title);
    }

    void all_consoles_are_well_represented() {
        QHash<QByteArray, int> published;
        for (const DemoEntry& entry : std::as_const(entries))
            if (entry.company != demoCompany) ++published[entry.system];
        for (const QByteArray& console : consoles) QVERIFY2(published.value(console) >= 50, console);
        QVERIFY(entries.size() - 4 >= 150);
    }

    void the_demo_games_are_there_under_their_own_names_data() {
        QTest::addColumn<QByteArray>("system");
        QTest::newRow("Night Garden") << QByteArray("byn");
        QTest::newRow("Day Garden") << QByteArray("byn");
        QTest::newRow("Colour Loom") << QByteArray("color");
        QTest::newRow("Lantern Drift") << QByteArray("advance");
    }
    void the_demo_games_are_there_under_their_own_names() {
        QFETCH(QByteArray, system);
        const QByteArray title = QTest::currentDataTag();
        QVERIFY(std::any_of(entries.cbegin(), entries.cend(), [&](const DemoEntry& e) {
            return e.title == title && e.system == system && e.company == demoCompany;
        }));
        // The build gives the games these names.
        QFile build(TORVANE_TESTS_DIR "/../demo/CMakeLists.txt");
        QVERIFY(build.open(QIODevice::ReadOnly));
        QVERIFY(build.readAll().contains(title + '.'));
    }
};

} // namespace torvane

using torvane::OnlineDatabaseFileTest;
TORVANE_APPLESS_TEST(OnlineDatabaseFileTest)
#include "OnlineDatabaseFileTest.moc"
