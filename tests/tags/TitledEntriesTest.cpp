// SPDX-License-Identifier: MIT
// Entries by title, against the reader of the window.
#include "tags/commands/TitledEntries.h"
#include "platform/base/CodePage1252.h"
#include "support/TestMain.h"
#include "tagdb/FilteredLines.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

using namespace torvane;

class TitledEntriesTest : public QObject {
    Q_OBJECT

    static OnlineDbEntry found(const TitledEntries& entries, const QByteArray& title,
                               const QByteArray& system) {
        return entries.find(title, system).entry.value_or(OnlineDbEntry());
    }
    static bool areSameTexts(const OnlineDbEntry& one, const OnlineDbEntry& other) {
        return one.Title == other.Title && one.Company == other.Company && one.Date == other.Date &&
               one.Info == other.Info;
    }
    /// Checks every row that the window shows.
    static void compareWithWindow(const QByteArray& file) {
        const TitledEntries entries(file);
        const auto rows = filterLines(file, OnlineDbFilter(), QDate(), QString());
        bool hasTitle = false;
        for (int row = 0; row < rows->count(); ++row) {
            const OnlineDbEntry shown = rows->entry(row);
            if (shown.Title.isEmpty()) continue;
            hasTitle = true;
            bool hasRivals = false;
            for (int other = 0; other < rows->count(); ++other) {
                const OnlineDbEntry rival = rows->entry(other);
                hasRivals =
                    hasRivals || (rival.System == shown.System &&
                                  CodePage1252::upper(rival.Title) == CodePage1252::upper(shown.Title) &&
                                  !areSameTexts(rival, shown));
            }
            const auto match = entries.find(shown.Title, shown.System);
            QCOMPARE(match.hasRivals, hasRivals);
            QCOMPARE(match.entry.has_value(), !hasRivals);
            if (match.entry) QVERIFY(areSameTexts(*match.entry, shown));
        }
        QCOMPARE(entries.isEmpty(), !hasTitle);
    }

private slots:
    void every_row_of_the_window_is_found() {
        QRandomGenerator random(16);
        const QByteArrayList words = {"byn",  "color", "advance", "no",   "a",          "A",    "\xE9",
                                      "\xC9", "",      " ",       "\xA7", "\xA7",       "\xA7", "\xA7",
                                      "\xA7", "\r\n",  "\n",      "\r",   "\r\nbyn\xA7"};
        for (int round = 0; round < 3000; ++round) {
            QByteArray file;
            const int count = random.bounded(60);
            for (int i = 0; i < count; ++i) file += words[random.bounded(static_cast<int>(words.size()))];
            compareWithWindow(file);
            if (QTest::currentTestFailed()) qFatal("%s", file.toHex(' ').constData());
        }
    }
    void an_entry_has_all_its_fields() {
        const TitledEntries entries("byn\xA7T\xA7"
                                    "C\xA7"
                                    "D\xA7I\xA7user\xA7"
                                    "A\xA7more\r\n");
        QCOMPARE(found(entries, "t", "byn"), (OnlineDbEntry{"byn", "T", "C", "D", "I", "USER", "A"}));
        QCOMPARE(found(entries, "t", ""), found(entries, "T", "byn"));
        QCOMPARE(found(entries, "t", "color"), OnlineDbEntry());
        QCOMPARE(found(entries, "", "byn"), OnlineDbEntry());
    }
    void millions_of_lines_that_take_over_a_long_value_cost_their_own_bytes() {
        const QByteArray line = "byn\n";
        QElapsedTimer timer;
        timer.start();
        for (const char* start : {"byn\xA7", "byn\xA7T\xA7"}) {
            const TitledEntries entries(start + QByteArray(4 << 20, 'x') + '\n' + line.repeated(1 << 20));
            QCOMPARE(entries.find("T", "byn").entry.has_value(), qstrlen(start) > 4);
        }
        // Each line anew, it would be 8 terabytes.
        QVERIFY2(timer.elapsed() < 20000, "it looks at a value again for each line");
    }
};

TORVANE_APPLESS_TEST(TitledEntriesTest)
#include "TitledEntriesTest.moc"
