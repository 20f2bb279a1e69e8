// SPDX-License-Identifier: MIT
// The dialog that adds a page: what it writes, what it leaves alone, and what the list shows afterwards.
#include "support/OpenedWeblist.h"
#include "support/TestMain.h"

#include <QClipboard>

using namespace torvane;
using namespace Qt::StringLiterals;

class AddPersonalWebTest : public OpenedWeblist {
    Q_OBJECT

    void press(Qt::Key key) const { QTest::keyClick(dialog().windowHandle(), key); }
    // A failed addition keeps the dialog with its texts, and the file.
    void checkFailed(const char* reason) {
        QCOMPARE(boxes().size(), 1);
        QVERIFY2(boxes().first().contains(QLatin1String(reason)), qPrintable(boxes().first()));
        QVERIFY(dialog().isVisible() && window().isVisible());
        QCOMPARE(fieldOf(dialog().Text2).text(), u"N"_s);
        QCOMPARE(personal(), mine);
        QCOMPARE(opened->world.ends, 0);
        for (const QString& name : files()) QVERIFY(!name.startsWith(u'.'));
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // The dialog
    void it_opens_above_the_list_which_owns_it() {
        openList(pandocs);
        openDialog();
        QVERIFY(window().isVisible() && dialog().isVisible());
        QCOMPARE(dialog().windowHandle()->transientParent(), window().windowHandle());
        QVERIFY(dialog().windowModality() == Qt::NonModal);
    }
    void its_texts_come_from_the_language_file_and_the_address_begins_as_most_do() {
        openList(pandocs);
        openDialog();
        QCOMPARE(dialog().Label1.Caption(), u"Torvane 1.1 » Add a personal link"_s);
        QCOMPARE(dialog().TVLabel1.Caption(), u"Page name"_s);
        QCOMPARE(dialog().TVLabel2.Caption(), u"Page address (URL)"_s);
        QCOMPARE(dialog().ChameleonButton17.Caption(), u"Add"_s);
        QCOMPARE(dialog().ChameleonButton1.Caption(), u"Cancel"_s);
        QCOMPARE(fieldOf(dialog().Text2).text(), QString());
        QCOMPARE(fieldOf(dialog().Text1).text(), u"http://"_s);
    }
    void cancel_escape_and_the_window_manager_close_it_and_write_nothing_data() {
        QTest::addColumn<QByteArray>("how");
        for (const char* how : {"button", "escape", "window manager"}) QTest::newRow(how) << QByteArray(how);
    }
    void cancel_escape_and_the_window_manager_close_it_and_write_nothing() {
        QFETCH(QByteArray, how);
        openList(pandocs, mine);
        openDialog();
        typeText(fieldOf(dialog().Text2), u"N"_s);
        if (how == "button") {
            click(dialog().ChameleonButton1);
        } else if (how == "escape") {
            press(Qt::Key_Escape);
        } else {
            dialog().close();
        }
        QVERIFY(loaded<AddPersonalWeb>() == nullptr);
        QCOMPARE(personal(), mine);
        QVERIFY(window().isVisible());
    }
    void it_goes_with_the_list() {
        openList(pandocs);
        openDialog();
        click(window().chameleonButton1);
        QVERIFY(loaded<AddPersonalWeb>() == nullptr);
        QVERIFY(main().isVisible());
    }

    // Adding
    void a_page_is_added_after_an_empty_line_and_listed_at_the_end() {
        openList(pandocs, mine);
        const URL* old = &window();
        addPage(u"New"_s, u"http://new.example/"_s);
        QVERIFY(loaded<AddPersonalWeb>() == nullptr);
        QCOMPARE(personal(), mine + "\r\nNew;http://new.example/;perso\r\n");
        QVERIFY(&window() != old);
        QVERIFY(window().isVisible() && !main().isVisible());
        QCOMPARE(rows(), (QStringList{u"Pan Docs"_s, u"Mine"_s, u"New"_s}));
        QCOMPARE(boxes(), QStringList());
        click(window().chameleonButton1);
        QVERIFY(main().isVisible());
    }
    void two_additions_in_a_row_leave_both_entries_each_after_an_empty_line() {
        openList({});
        addPage(u"A"_s, u"http://a"_s);
        collectGone();
        addPage(u"B"_s, u"http://b"_s);
        QCOMPARE(personal(), "\r\nA;http://a;perso\r\n\r\nB;http://b;perso\r\n");
        QCOMPARE(rows(), (QStringList{u"A"_s, u"B"_s}));
    }
    void an_empty_name_and_an_empty_address_are_written_and_kept() {
        openList({});
        addPage({}, {});
        QCOMPARE(personal(), "\r\n;;perso\r\n");
        QCOMPARE(rows(), QStringList{u""_s});
        QVERIFY(canDelete());
    }
    void a_semicolon_is_written_as_it_stands_and_shifts_the_fields() {
        openList({});
        addPage(u"a;b"_s, u"http://a"_s);
        QCOMPARE(personal(), "\r\na;b;http://a;perso\r\n");
        QCOMPARE(labels(), (QStringList{u"a"_s, u"Personal link"_s, u"b"_s}));
    }
    void markup_quotes_and_shell_words_are_text_data() {
        QTest::addColumn<QString>("words");
        for (const char* words :
             {"<b>x</b>", "\"quoted\"", "$(touch harm)", "`touch harm`", "a && b | c", "%s%n"})
            QTest::newRow(words) << QString::fromLatin1(words);
    }
    void markup_quotes_and_shell_words_are_text() {
        QFETCH(QString, words);
        openList({});
        addPage(words, u"javascript:"_s + words);
        QCOMPARE(personal(), "\r\n" + words.toLatin1() + ";javascript:" + words.toLatin1() + ";perso\r\n");
        QCOMPARE(rows(), QStringList{words});
        openRow(0);
        QCOMPARE(urls(), QStringList());
    }
    void what_is_added_can_be_opened_and_deleted_again() {
        openList(pandocs);
        addPage(u"Ñandú <b>"_s, u"https://example.org/a b?c=\"d\""_s);
        openRow(1);
        QCOMPARE(urls(), QStringList{u"https://example.org/a b?c=\"d\""_s});
        collectGone();
        main().setWindowStateWord(Form::normal);
        clickList();
        chooseRow(1);
        clickDelete();
        QCOMPARE(rows(), QStringList{u"Pan Docs"_s});
    }
    void return_leads_from_the_name_to_the_address_and_adds_the_page() {
        openList({});
        openDialog();
        typeText(*qApp->focusWidget(), u"Key"_s);
        press(Qt::Key_Return);
        QVERIFY(loaded<AddPersonalWeb>() != nullptr);
        press(Qt::Key_End);
        typeText(*qApp->focusWidget(), u"k.example"_s);
        press(Qt::Key_Return);
        QVERIFY(loaded<AddPersonalWeb>() == nullptr);
        QCOMPARE(personal(), "\r\nKey;http://k.example;perso\r\n");
    }
    void brought_back_by_the_desktop_it_leaves_the_focus_where_it_was() {
        openList({});
        openDialog();
        fieldOf(dialog().Text1).setFocus();
        QShowEvent again;
        QSpontaneKeyEvent::setSpontaneous(&again);
        qApp->notify(&dialog(), &again);
        QVERIFY(fieldOf(dialog().Text1).hasFocus());
    }
    void blanks_at_both_ends_are_written_as_they_stand() {
        openList({});
        addPage(u" N "_s, u" http://a "_s);
        QCOMPARE(personal(), "\r\n N ; http://a ;perso\r\n");
        QCOMPARE(rows(), QStringList{u" N "_s});
    }
    void pasted_line_ends_and_control_characters_become_blanks() {
        openList({});
        openDialog();
        QGuiApplication::clipboard()->setText(u"one\r\ntwo\tthree\x01"_s);
        fieldOf(dialog().Text2).paste();
        fieldOf(dialog().Text1).clear();
        fieldOf(dialog().Text1).paste();
        click(dialog().ChameleonButton17);
        QVERIFY(!personal().contains('\t') && !personal().contains('\x01'));
        QCOMPARE(rows().size(), 1);
        QCOMPARE(personal().count('\n'), 2);
    }
    void letters_that_the_file_cannot_hold_are_left_out_of_names_and_encoded_in_addresses() {
        openList({});
        addPage(u"Игра Ñ"_s, u"http://a/И"_s);
        QCOMPARE(personal(), "\r\n \xD1;http://a/%D0%98;perso\r\n");
    }
    void an_entry_that_is_handed_over_is_added_as_a_new_one_and_the_old_one_stays() {
        openList({}, mine);
        openDialog();
        dialog().EditWeb(u"Mine"_s, u"http://other.example/"_s);
        QCOMPARE(fieldOf(dialog().Text2).text(), u"Mine"_s);
        click(dialog().ChameleonButton17);
        QCOMPARE(personal(), mine + "\r\nMine;http://other.example/;perso\r\n");
    }

    // Bad days of the disk
    void a_missing_file_is_made() {
        openList({});
        QVERIFY(QFile::remove(folder().path(u"data/url_perso.dat"_s)));
        addPage(u"N"_s, u"http://a"_s);
        QCOMPARE(personal(), "\r\nN;http://a;perso\r\n");
    }
    void a_full_disk_is_reported_and_nothing_is_lost() {
        openList({}, mine);
        {
            const FullDisk full(10);
            addPage(u"N"_s, u"http://a"_s);
        }
        checkFailed("(61)");
        click(dialog().ChameleonButton17);
        QCOMPARE(personal(), mine + "\r\nN;http://a;perso\r\n");
    }
    void a_failure_after_return_is_reported_too_and_return_adds_the_page_afterwards() {
        openList({}, mine);
        openDialog();
        typeText(fieldOf(dialog().Text2), u"N"_s);
        press(Qt::Key_Return);
        {
            const FullDisk full(10);
            press(Qt::Key_Return);
        }
        checkFailed("(61)");
        press(Qt::Key_Return);
        QCOMPARE(personal(), mine + "\r\nN;http://;perso\r\n");
    }
    void a_read_only_folder_is_reported_and_nothing_is_lost() {
        openList({}, mine);
        folder().setMode(u"data"_s, 0555);
        {
            const OrdinaryUser user;
            addPage(u"N"_s, u"http://a"_s);
        }
        folder().setMode(u"data"_s, 0755);
        checkFailed("(70)");
    }
    void a_read_only_file_is_reported_and_stays() {
        openList({}, mine);
        folder().setMode(u"data"_s, 0777);
        folder().setMode(u"data/url_perso.dat"_s, 0444);
        {
            const OrdinaryUser user;
            addPage(u"N"_s, u"http://a"_s);
        }
        checkFailed("(70)");
    }
};

TORVANE_TEST(AddPersonalWebTest)
#include "AddPersonalWebTest.moc"
