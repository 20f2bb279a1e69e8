// SPDX-License-Identifier: MIT
// The rows as a list sees them: entries that are added, long values, and many lines without all their fields.
#include "FilteredRows.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

using namespace torvane;
using namespace Qt::StringLiterals;

class OnlineDbRowsTest : public QObject {
    Q_OBJECT

private slots:
    void rows_without_a_file_are_empty() { QCOMPARE(OnlineDbRows().count(), 0); }
    void an_added_entry_is_the_last_row() {
        const auto rows = filtered(lineOf("byn", "a") + "\r\n");
        const OnlineDbEntry entry{"color", "Title", "Company", "Date", "Info", "USER", "Author"};
        rows->append(entry);
        rows->append({"other", "Last", {}, {}, {}, {}, {}});
        QCOMPARE(rows->count(), 3);
        QCOMPARE(rowTexts(*rows, 1),
                 (QStringList{u"Title"_s, u"Company"_s, u"Date"_s, u"USER"_s, u"Author"_s, u"Info"_s}));
        QCOMPARE(rows->icon(1), 2);
        QCOMPARE(rows->entry(1), entry);
        QCOMPARE(rows->icon(2), 0);
        QCOMPARE(column(*rows, 0), (QStringList{u"a"_s, u"Title"_s, u"Last"_s}));
    }
    void entries_can_be_added_to_no_rows() {
        OnlineDbRows rows;
        rows.append({"advance", "Only", {}, {}, {}, {}, {}});
        QCOMPARE(column(rows, 0), QStringList{u"Only"_s});
        QCOMPARE(rows.icon(0), 3);
    }
    void texts_are_read_in_the_code_page() {
        const auto rows = filtered(lineOf("byn", "\x80 \xD1 \x9F \x81"));
        QCOMPARE(rows->text(0, 0), u"€ Ñ Ÿ \u0081"_s);
    }
    void a_cell_shows_the_first_1000_characters_and_the_entry_has_all() {
        const auto rows = filtered(lineOf("byn", QByteArray(1000, 'a') + 'b'));
        QCOMPARE(rows->text(0, 0), QString(1000, u'a'));
        QCOMPARE(rows->entry(0).Title, QByteArray(1000, 'a') + 'b');
    }
    void rows_keep_their_bytes_when_the_callers_are_gone() {
        QByteArray file = lineOf("byn", "kept") + "\r\n";
        const auto rows = filtered(file);
        file.fill('x');
        QCOMPARE(rows->text(0, 0), u"kept"_s);
    }
    // A search through the file for each of them would take minutes.
    void a_page_of_a_million_short_lines_is_there_at_once() {
        QByteArray file = lineOf("byn", "first") + '\n';
        for (int i = 0; i < 1'000'000; ++i) file += i % 2 == 0 ? "byn\n" : "byn\xA7t\n";
        const auto rows = filtered(file);
        QCOMPARE(rows->count(), 1'000'001);
        QElapsedTimer clock;
        clock.start();
        for (int row = rows->count() - 1000; row < rows->count(); ++row) {
            QCOMPARE(rows->text(row, 0), u"t"_s);
            QCOMPARE(rows->text(row, 4), u"somebody"_s);
        }
        QVERIFY2(clock.elapsed() < 2000, "the values of earlier lines are searched for");
    }
};

TORVANE_APPLESS_TEST(OnlineDbRowsTest)
#include "OnlineDbRowsTest.moc"
