// SPDX-License-Identifier: MIT
// The age of an entry: which dates pass on 22 November 2026, by the age in the box and the user's form of
// dates.
#include "tagdb/EntryAge.h"
#include "FilteredRows.h"
#include "platform/base/CodePage1252.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class EntryAgeTest : public QObject {
    Q_OBJECT

    static bool passes(const QString& age, const QByteArray& date, const QString& form = u"dd/MM/yy"_s) {
        return EntryAge(age, QDate(2026, 11, 22), form).passes(date);
    }
    // Whether the day that is so many days ago is the one written in ISO form, and no other one.
    static bool means(const QString& age, const QByteArray& date) {
        const QDate day = QDate::fromString(QString::fromLatin1(date), Qt::ISODate);
        return passes(age, date) && !passes(age, day.addDays(1).toString(Qt::ISODate).toLatin1()) &&
               !passes(age, day.addDays(-1).toString(Qt::ISODate).toLatin1());
    }

private slots:
    void an_empty_box_lets_every_date_pass() {
        QVERIFY(passes({}, "22/11/2026"));
        QVERIFY(passes({}, "long ago"));
        QVERIFY(passes({}, ""));
    }
    void exactly_that_age_passes_and_not_up_to_it() {
        QVERIFY(means(u"0"_s, "2026-11-22"));
        QVERIFY(means(u"1"_s, "2026-11-21"));
        QVERIFY(means(u"22"_s, "2026-10-31"));
        QVERIFY(means(u"365"_s, "2025-11-22"));
        QVERIFY(means(u"8695"_s, "2003-02-01"));
        QVERIFY(means(u"999"_s, "2024-02-27"));
        QVERIFY(means(u"998"_s, "2024-02-28"));
        QVERIFY(means(u"997"_s, "2024-02-29"));
    }
    void an_age_below_0_is_in_the_future() { QVERIFY(means(u"-9"_s, "2026-12-01")); }
    void an_age_is_a_number_like_the_size_in_a_tag_data() {
        QTest::addColumn<QString>("age");
        for (const char* age : {"9", "+9", " 9 ", "9.0", "09", "9e0", "0.9e1", "9\t"})
            QTest::newRow(age) << QString::fromLatin1(age);
    }
    void an_age_is_a_number_like_the_size_in_a_tag() {
        QFETCH(QString, age);
        QVERIFY(means(age, "2026-11-13"));
    }
    void a_fraction_counts_as_the_day_in_which_the_moment_lies() {
        QVERIFY(means(u"0.5"_s, "2026-11-21"));
        QVERIFY(means(u"0.001"_s, "2026-11-21"));
        QVERIFY(means(u"1.99"_s, "2026-11-20"));
        QVERIFY(means(u"-0.5"_s, "2026-11-22"));
        QVERIFY(means(u"-0"_s, "2026-11-22"));
    }
    void an_age_that_is_no_number_lets_every_date_pass_data() {
        QTest::addColumn<QString>("age");
        for (const char* age :
             {"old", "9 days", " ", "0x9", "1,5", "inf", "nan", "-", "९", "1 000", "22/11/2026", "1e999"})
            QTest::newRow(age) << QString::fromUtf8(age);
    }
    void an_age_that_is_no_number_lets_every_date_pass() {
        QFETCH(QString, age);
        QVERIFY(passes(age, "22/11/2026"));
        QVERIFY(passes(age, "whenever"));
        OnlineDbFilter filter;
        filter.date = age;
        QCOMPARE(titles(lineOf("byn", "a"), filter), QStringList{u"a"_s});
    }
    void an_age_beyond_all_dates_lets_every_date_pass_data() {
        QTest::addColumn<QString>("age");
        for (const char* age : {"1e300", "-1e300", "1e18", "-1e18", "9223372036854775808", "2147483648",
                                "703783", "-2912118", "1.7976931348623157e308"})
            QTest::newRow(age) << QString::fromLatin1(age);
    }
    void an_age_beyond_all_dates_lets_every_date_pass() {
        QFETCH(QString, age);
        QVERIFY(passes(age, "22/11/2026"));
        QVERIFY(passes(age, "whenever"));
        QVERIFY(passes(age, ""));
    }
    void the_first_and_the_last_date_are_days_like_others() {
        const QDate today(2026, 11, 22);
        const auto ageOf = [&](const QDate& day) { return QString::number(day.daysTo(today)); };
        QVERIFY(passes(ageOf({100, 1, 1}), "1/1/0100"));
        QVERIFY(!passes(ageOf({100, 1, 1}), "2/1/0100"));
        QVERIFY(passes(ageOf({9999, 12, 31}), "9999-12-31"));
        QVERIFY(!passes(ageOf({9999, 12, 31}), "9999-12-30"));
        QVERIFY(passes(ageOf(QDate(100, 1, 1).addDays(-1)), "whenever"));
        QVERIFY(passes(ageOf(QDate(9999, 12, 31).addDays(1)), "whenever"));
    }

    // Forms of dates
    void a_date_passes_in_the_users_form_and_in_two_others_data() {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QByteArray>("date");
        QTest::addColumn<bool>("expected");
        const auto row = [](const char* form, const char* date, bool expected) {
            QTest::addRow("%s %s", form, date) << QString::fromUtf8(form) << QByteArray(date) << expected;
        };
        // 5 June 2026
        for (const char* form : {"d/M/yyyy", "M/d/yy", "yyyy-MM-dd", "dd.MM.yy"}) {
            for (const char* date : {"5/6/2026", "05/06/2026", "5/06/2026", "2026-06-05", "2026-6-5"})
                row(form, date, true);
            for (const char* date :
                 {"5/6/2025", "6/6/2026", "5/6/26", "005/6/2026", "5/6/02026", "5/6/2026 ", " 5/6/2026",
                  "5-6-2026", "2026/06/05", "26-06-05", "", "5/6", "5/6/", "today"})
                row(form, date, false);
        }
        row("M/d/yy", "6/5/26", true);
        row("M/d/yy", "06/05/26", true);
        row("M/d/yy", "5/6/26", false);
        row("M/d/yy", "6/5/1926", false);
        row("M/d/yy", "6/5/2026", false);
        row("M/d/yyyy", "6/5/2026", true);
        row("dd/MM/yy", "05/06/26", true);
        row("dd/MM/yy", "5/6/26", true);
        row("d.M.yyyy", "5.6.2026", true);
        row("dd.MM.yyyy", "5.6.2026", true);
        row("dd.MM.yyyy", "5,6,2026", false);
        row("d. M. yyyy.", "5. 6. 2026.", true);
        row("d. M. yyyy.", "5. 6. 2026", false);
        row("d.MM.yy 'г'.", "5.06.26 ?.", false); // the file can't hold this form
        row("d.MM.yy 'of' ''", "5.06.26 of '", true);
        row("yyyy. MM. dd.", "2026. 06. 05.", true);
        row("d MMM yyyy", "5 Jun 2026", true);
        row("d MMM yyyy", "05 Jun 2026", true);
        row("d MMM yyyy", "5 Jul 2026", false);
        row("ddd d MMMM yyyy", "Fri 5 June 2026", true);
        row("", "5/6/2026", true);
        row("'today'", "today", true);
    }
    void a_date_passes_in_the_users_form_and_in_two_others() {
        QFETCH(QString, form);
        QFETCH(QByteArray, date);
        QTEST(EntryAge(u"2"_s, QDate(2026, 6, 7), form).passes(date), "expected");
    }
    void the_29_of_february_of_2000_passes_with_two_digits() {
        QVERIFY(EntryAge(u"1"_s, QDate(2000, 3, 1), u"dd/MM/yy"_s).passes("29/2/00"));
        QVERIFY(!EntryAge(u"1"_s, QDate(2000, 3, 1), u"dd/MM/yy"_s).passes("28/2/00"));
    }
    void the_short_date_of_every_locale_passes() {
        const QDate day(2026, 9, 4);
        int count = 0;
        for (const QLocale& locale :
             QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
            const QString form = locale.dateFormat(QLocale::ShortFormat);
            const QString text = locale.toString(day, QLocale::ShortFormat);
            if (!CodePage1252::holds(text)) continue;
            ++count;
            const EntryAge age(u"3"_s, QDate(2026, 9, 7), form);
            QVERIFY2(age.passes(CodePage1252::toBytes(text)), qPrintable(locale.name()));
            const QString other = locale.toString(day.addDays(1), QLocale::ShortFormat);
            QVERIFY2(!age.passes(CodePage1252::toBytes(other)), qPrintable(locale.name()));
        }
        QVERIFY(count > 100);
    }
    void the_filter_takes_the_age_from_today_and_the_users_form() {
        OnlineDbFilter filter;
        filter.date = u"3"_s;
        const auto entry = [](const char* title, const char* date) {
            return line({"byn", title, "c", date, "i", "USER", "a"}) + "\r\n";
        };
        QCOMPARE(titles(entry("a", "19/11/26") + entry("b", "20/11/26") + entry("c", "19/11/2026") +
                            entry("d", "2026-11-19") + entry("e", "19.11.26"),
                        filter),
                 (QStringList{u"a"_s, u"c"_s, u"d"_s}));
    }
};

TORVANE_APPLESS_TEST(EntryAgeTest)
#include "EntryAgeTest.moc"
