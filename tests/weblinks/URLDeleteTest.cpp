// SPDX-License-Identifier: MIT
// Deleting pages in the web list: what is shown, what goes, and what stays.
#include "support/OpenedWeblist.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class URLDeleteTest : public OpenedWeblist {
    Q_OBJECT

    const QByteArray yours = "Yours;http://yours.example/;perso\r\n";

    // Two personal pages after a shared one; the first of them is selected.
    void openTwo() {
        openList(pandocs, mine + yours);
        chooseRow(1);
    }
    void checkFails(const char* reason) {
        QCOMPARE(boxes().size(), 2); // the line, and the failure
        QVERIFY2(boxes().last().contains(QLatin1String(reason)), qPrintable(boxes().last()));
        checkIsUsable();
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void the_line_is_shown_in_a_plain_box_that_cannot_be_refused() {
        openTwo();
        messages().answer = MsgBoxFlags::answerNo;
        clickDelete();
        QCOMPARE(boxes(), QStringList{u"Mine;http://mine.example/;perso"_s});
        QCOMPARE(messages().boxes.first().flags, MsgBoxFlags::okOnly);
        QCOMPARE(messages().boxes.first().title, QString());
        QVERIFY(!personal().contains("Mine"));
    }
    void the_line_goes_and_the_window_lists_the_files_anew() {
        openTwo();
        const URL* old = &window();
        clickDelete();
        QCOMPARE(personal(), "\r\n\r\n" + yours + "\r\n");
        QVERIFY(&window() != old);
        QVERIFY(window().isVisible() && !main().isVisible());
        QCOMPARE(rows(), (QStringList{u"Pan Docs"_s, u"Yours"_s}));
        QCOMPARE(window().TotalRom.Caption(), u"0002"_s);
        QCOMPARE(window().OrderNumber.Caption(), u"0001"_s);
        QCOMPARE(shared(), pandocs);
    }
    void before_it_the_whole_file_is_kept() {
        openTwo();
        clickDelete();
        QCOMPARE(backup(), mine + yours);
        const QByteArray between = personal();
        collectGone();
        chooseRow(1);
        clickDelete();
        QCOMPARE(backup(), between);
    }
    void after_the_last_page_only_line_ends_are_left() {
        openList({}, mine);
        clickDelete();
        QCOMPARE(rows(), QStringList());
        QCOMPARE(personal(), "\r\n\r\n\r\n");
        QCOMPARE(boxes().size(), 1);
        QVERIFY(!canDelete());
    }
    void of_two_equal_pages_the_first_goes_with_all_that_follows_the_second() {
        openList({}, yours + mine + "Between;http://b;perso\r\n" + mine + "After;http://a;perso\r\n");
        const QByteArray all = personal();
        chooseRow(1);
        clickDelete();
        QCOMPARE(rows(), (QStringList{u"Yours"_s, u"Between"_s}));
        QCOMPARE(backup(), all);
    }
    void deletion_cuts_at_bytes_wherever_they_are() {
        openList({}, "XMine;http://mine.example/;personal\r\n" + mine);
        chooseRow(1);
        clickDelete();
        QCOMPARE(personal(), "X\r\nnal\r\n\r\n");
    }
    void a_page_of_any_bytes_is_deleted() {
        openList({}, "<b>\x01\x81\xFF\0;javascript:';perso\r\n"_ba);
        clickDelete();
        QCOMPARE(personal(), "\r\n\r\n\r\n");
    }
    void the_box_shows_letters_of_code_page_1252() {
        openList({}, "\xD1 \x80 \x81;http://a/\xE1;perso\r\n");
        clickDelete();
        QCOMPARE(boxes(), QStringList{u"Ñ € \u0081;http://a/á;perso"_s});
    }
    void the_box_shows_a_name_with_a_dollar_sign_whole() {
        openList({}, "a$b;http://a;perso\r\n");
        clickDelete();
        QVERIFY2(boxes().first().startsWith(u"a$b;b "_s), qPrintable(boxes().first()));
        checkFails("(9)");
    }
    void a_window_that_closes_under_its_box_deletes_nothing() {
        openTwo();
        messages().whileOpen = [this] { window().close(); };
        clickDelete();
        QCOMPARE(boxes().size(), 1);
        QVERIFY(loaded<URL>() == nullptr);
        QVERIFY(main().isVisible());
        QCOMPARE(personal(), mine + yours);
        QVERIFY(!files().contains(u"url_perso.bak"_s));
    }
    void a_name_with_200_blanks_in_a_row_cannot_be_found_again() {
        const QByteArray line = "a" + QByteArray(200, ' ') + "b;http://a;perso\r\n";
        openList({}, line);
        clickDelete();
        checkFails("(9)");
        QCOMPARE(personal(), line);
        QVERIFY(!files().contains(u"url_perso.bak"_s));
    }
    void a_page_of_the_shared_file_with_another_kind_cannot_be_found_in_the_users_own() {
        openList("A;http://a;SYSTEM\r\n", mine);
        clickDelete();
        checkFails("(9)");
        QCOMPARE(personal(), mine);
        QVERIFY(shared().startsWith("A;"));
    }
    void a_line_of_a_mebibyte_is_deleted_and_its_box_is_not_endless() {
        openList({}, QByteArray(1 << 20, 'n') + ";http://a;perso\r\n" + mine);
        clickDelete();
        QCOMPARE(boxes().first().size(), 1000);
        QCOMPARE(rows(), QStringList{u"Mine"_s});
    }
    void the_dialog_goes_with_the_window() {
        openTwo();
        openDialog();
        clickDelete();
        QVERIFY(loaded<AddPersonalWeb>() == nullptr);
    }

    // Bad days of the disk
    void a_file_that_has_gone_is_reported() {
        openTwo();
        QVERIFY(QFile::remove(folder().path(u"data/url_perso.dat"_s)));
        clickDelete();
        checkFails("url_perso.dat");
    }
    void a_full_disk_is_reported_and_nothing_is_lost() {
        openTwo();
        {
            const FullDisk full(10);
            clickDelete();
        }
        checkFails("(61)");
        QCOMPARE(personal(), mine + yours);
        for (const QString& name : files()) QVERIFY(!name.startsWith(u'.'));
    }
    void a_read_only_folder_is_reported_and_nothing_is_lost() {
        openTwo();
        folder().setMode(u"data"_s, 0555);
        {
            const OrdinaryUser user;
            clickDelete();
        }
        folder().setMode(u"data"_s, 0755);
        checkFails("(70)");
        QCOMPARE(personal(), mine + yours);
    }
    void a_read_only_file_is_reported_and_stays() {
        openTwo();
        folder().setMode(u"data"_s, 0777);
        folder().setMode(u"data/url_perso.dat"_s, 0444);
        {
            const OrdinaryUser user;
            clickDelete();
        }
        checkFails("(70)");
        QCOMPARE(personal(), mine + yours);
    }
    void what_follows_the_third_field_stays() {
        openList({}, "A;http://a;perso;more\r\n" + mine);
        clickDelete();
        QCOMPARE(personal(), "\r\n;more\r\n" + mine + "\r\n");
    }
};

TORVANE_TEST(URLDeleteTest)
#include "URLDeleteTest.moc"
