// SPDX-License-Identifier: MIT
// The web list: how it opens and closes, what it lists and shows, and how a page is opened.
#include "platform/base/CodePage1252.h"
#include "support/OpenedWeblist.h"
#include "support/TestMain.h"
#include "weblinks/WebEntry.h"
#include "weblinks/WebTexts.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
// The hidden list with an item that files can't have.
struct InertItem : RowSource {
    int count() const override { return 1; }
    QString text(int, int) const override { return u"***"_s; }
    int icon(int) const override { return 0; }
};
} // namespace

class URLTest : public OpenedWeblist {
    Q_OBJECT

    static QByteArray pages(int count) {
        QByteArray all;
        for (int i = 1; i <= count; ++i) all += "Page " + QByteArray::number(i) + ";http://p;system\r\n";
        return all;
    }
    qint64 pictureOf(int row) const {
        const QModelIndex index = window().ListView1.model().index(row, 0);
        return index.data(Qt::DecorationRole).value<QPixmap>().cacheKey();
    }
    // What opens a page from the only row.
    void checkOpens(const QString& address) {
        QCOMPARE(urls(), QStringList{address});
        QVERIFY(loaded<URL>() == nullptr);
        QVERIFY(main().isVisible());
        QTRY_COMPARE(main().windowStateWord(), Form::minimised);
        QCOMPARE(boxes(), QStringList());
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // The window
    void the_button_of_the_main_window_opens_it_instead_of_that() {
        openList(pandocs);
        QVERIFY(window().isVisible());
        QVERIFY(!main().isVisible());
        QCOMPARE(boxes(), QStringList());
    }
    void it_is_never_modal_and_has_no_owner_also_when_it_is_opened_anew() {
        openList(pandocs, mine);
        for (int opening = 0; opening < 2; ++opening) {
            QVERIFY(window().windowModality() == Qt::NonModal);
            QCOMPARE(window().windowHandle()->transientParent(), nullptr);
            window().SetNewName(u"Ana"_s);
        }
    }
    void the_close_button_and_the_window_manager_bring_the_main_window_back_which_takes_input() {
        openList(pandocs);
        click(window().chameleonButton1);
        QVERIFY(loaded<URL>() == nullptr);
        QVERIFY(main().isVisible() && main().isEnabled());
        collectGone();
        clickList();
        window().close();
        QVERIFY(loaded<URL>() == nullptr);
        QVERIFY(main().isVisible() && main().isEnabled());
    }
    void the_texts_come_from_both_spellings_of_the_section() {
        openList({});
        QCOMPARE(window().Label2.Caption(), u"Torvane 1.1 » Web directory"_s);
        QCOMPARE(window().Lbl_ID3Title.Caption(), u"Web page"_s);
        QCOMPARE(window().Lbl_ID3Author.Caption(), u"Type"_s);
        QCOMPARE(window().Lbl_ID3Date.Caption(), u"Address"_s);
        QCOMPARE(window().Label12.Caption(), u"Number in the list"_s);
        QCOMPARE(window().Label16.Caption(), u"Total links"_s);
        QCOMPARE(window().ChameleonButton2.Caption(), u"Delete the link"_s);
        QCOMPARE(window().chameleonButton4.Caption(), u"Add a link"_s);
        QCOMPARE(window().chameleonButton5.Caption(), u"Look for new links"_s);
    }
    void with_no_row_at_all_the_load_just_ends_with_its_first_texts() {
        openList({});
        QCOMPARE(boxes(), QStringList());
        QCOMPARE(window().GameTitle.Caption(), text("nodisp"));
        QCOMPARE(window().GameAutor.Caption(), text("downloading"));
        QCOMPARE(window().GameDate.Caption(), text("ordernum"));
        QCOMPARE(window().OrderNumber.Caption(), u"0000"_s);
        QCOMPARE(window().TotalRom.Caption(), u"0000"_s);
        QVERIFY(!canDelete());
        QVERIFY(!isSeen(window().Loading));
    }
    void it_can_be_opened_anew_with_a_name_to_remember() {
        openList(pandocs);
        const URL* old = &window();
        window().SetNewName(u"Ana"_s);
        QVERIFY(&window() != old);
        QVERIFY(window().isVisible() && !main().isVisible());
        QCOMPARE(window().NewName(), u"Ana"_s);
        QCOMPARE(rows(), QStringList{u"Pan Docs"_s});
    }

    // The list
    void a_personal_entry_is_listed_after_all_shared_ones() {
        openList(pandocs + emulator, mine);
        QCOMPARE(rows(), (QStringList{u"Pan Docs"_s, u"An emulator"_s, u"Mine"_s}));
        QCOMPARE(window().List1.ListCount(), 3);
    }
    void rows_have_the_picture_of_their_kind_and_unknown_kinds_have_none() {
        openList(pandocs + "Other;http://o;SYSTEM\r\n", mine);
        QCOMPARE(pictureOf(0), window().ImageList1.picture(1).cacheKey());
        QCOMPARE(pictureOf(1), QPixmap().cacheKey());
        QCOMPARE(pictureOf(2), window().ImageList1.picture(2).cacheKey());
        QCOMPARE(window().ImageList1.picture(2).deviceIndependentSize().toSize(), QSize(32, 32));
    }
    void rows_are_known_by_their_line_over_both_files() {
        openList(pandocs + "\r\n" + emulator, "\r\n" + mine);
        const RowModel& model = window().ListView1.model();
        QStringList keys;
        for (int row = 0; row < 3; ++row) keys += model.index(row, 0).data(RowModel::KeyRole).toString();
        QCOMPARE(keys, (QStringList{u"wolas0"_s, u"wolas2"_s, u"wolas4"_s}));
    }
    void the_total_has_four_digits_data() {
        QTest::addColumn<QString>("total");
        QTest::newRow("7") << u"0007"_s;
        QTest::newRow("42") << u"0042"_s;
        QTest::newRow("123") << u"0123"_s;
        QTest::newRow("1234") << u"1234"_s;
        QTest::newRow("12345") << u"12345"_s;
    }
    void the_total_has_four_digits() {
        openList(pages(QByteArray(QTest::currentDataTag()).toInt()));
        QTEST(window().TotalRom.Caption(), "total");
    }

    // The selected page
    void the_first_page_is_selected_at_once() {
        openList(pandocs + emulator);
        QCOMPARE(window().ListView1.currentRow(), 0);
        QCOMPARE(labels(),
                 (QStringList{u"Pan Docs"_s, u"Shared link"_s, u"https://gbdev.example/pandocs/"_s}));
        QCOMPARE(window().OrderNumber.Caption(), u"0001"_s);
    }
    void a_click_shows_a_page_its_kind_and_its_number() {
        openList(pandocs + emulator, mine);
        chooseRow(2);
        QCOMPARE(labels(), (QStringList{u"Mine"_s, u"Personal link"_s, u"http://mine.example/"_s}));
        QCOMPARE(window().OrderNumber.Caption(), u"0003"_s);
        QTest::keyClick(window().windowHandle(), Qt::Key_Up);
        QCOMPARE(window().OrderNumber.Caption(), u"0002"_s);
    }
    void the_number_is_that_of_the_row_that_the_user_sees() {
        openList(pandocs + emulator);
        window().List1.setListIndex(1);
        QCOMPARE(labels().first(), u"An emulator"_s);
        QCOMPARE(window().OrderNumber.Caption(), u"0001"_s);
    }
    void the_name_keeps_its_blanks() {
        openList(pandocs);
        QCOMPARE(window().GameTitle.Caption(), u"Pan Docs"_s + QString(200, u' '));
    }
    void a_shared_page_disables_delete_and_a_personal_one_enables_it() {
        openList(pandocs, mine);
        QVERIFY(!canDelete());
        chooseRow(1);
        QVERIFY(canDelete());
        chooseRow(0);
        QVERIFY(!canDelete());
    }
    void any_kind_but_system_is_the_users_and_can_be_deleted() {
        openList("A;http://a;SYSTEM\r\nB;http://b;\r\n");
        for (int row = 0; row < 2; ++row) {
            chooseRow(row);
            QCOMPARE(window().GameAutor.Caption(), text("user"));
            QVERIFY(canDelete());
        }
    }
    void after_a_line_of_two_fields_the_lists_are_out_of_step() {
        openList(pandocs + "Short;http://short\r\n" + emulator);
        QCOMPARE(rows(), (QStringList{u"Pan Docs"_s, u"Short"_s, u"An emulator"_s}));
        QCOMPARE(window().TotalRom.Caption(), u"0002"_s);
        chooseRow(1);
        QCOMPARE(labels().first(), u"An emulator"_s);
        QCOMPARE(window().OrderNumber.Caption(), u"0002"_s);
        chooseRow(2);
        QCOMPARE(boxes().size(), 1);
        QVERIFY2(boxes().last().contains(u"380"_s), qPrintable(boxes().last()));
        checkIsUsable();
    }
    void a_long_name_and_a_long_address_can_be_read_whole() {
        const QByteArray name = "A name that is much longer than the label has room for, and then some";
        const QByteArray address = "http://example.org/" + QByteArray(400, 'x');
        openList(name + ';' + address + ";system\r\n");
        QStringList shown;
        for (const QPlainTextEdit* field : window().findChildren<QPlainTextEdit*>()) {
            if (field->isVisible()) shown += field->toPlainText().trimmed();
        }
        shown.sort();
        QCOMPARE(shown, (QStringList{QString::fromLatin1(name), QString::fromLatin1(address)}));
    }

    // Opening a page
    void a_double_click_opens_the_page_and_minimises_the_main_window() {
        openList(pandocs + emulator);
        openRow(1);
        checkOpens(u"http://mgba.example/"_s);
    }
    void return_opens_the_selected_page() {
        openList(pandocs);
        QTest::keyClick(window().windowHandle(), Qt::Key_Return);
        checkOpens(u"https://gbdev.example/pandocs/"_s);
    }
    void the_label_beside_the_window_and_the_hidden_list_open_it_too() {
        openList(pandocs);
        emit window().Label15.Click();
        checkOpens(u"https://gbdev.example/pandocs/"_s);
        urls().clear();
        collectGone();
        main().setWindowStateWord(Form::normal);
        clickList();
        emit window().List1.rowDoubleClicked(0);
        checkOpens(u"https://gbdev.example/pandocs/"_s);
    }
    void the_address_reaches_the_browser_as_it_stands_data() {
        QTest::addColumn<QByteArray>("address");
        for (const char* address :
             {"file:///tmp/a page.html", "HTTPS://A.EXAMPLE", "http://a.example/?q='x' && touch y",
              "http://a/$", "http://a/<b>&amp", "http://a/\x01\x1B[31m\x7F", "http://a/\xF1"})
            QTest::newRow(address) << QByteArray(address);
        QTest::newRow("zero byte") << "http://a/\0b"_ba;
    }
    void the_address_reaches_the_browser_as_it_stands() {
        QFETCH(QByteArray, address);
        openList("A;" + address + ";system\r\n");
        openRow(0);
        QCOMPARE(urls(), QStringList{CodePage1252::fromBytes(address).section(u'$', 0, 0)});
    }
    void a_dollar_sign_cuts_the_address_short_when_the_page_is_opened() {
        openList("A;http://a.example/$(touch x);system\r\n");
        openRow(0);
        checkOpens(u"http://a.example/"_s);
    }
    void what_is_no_page_is_reported_and_not_opened_data() {
        QTest::addColumn<QByteArray>("address");
        for (const char* address : {"", "javascript:alert(1)", "www.example.org", "ftp://a", "mailto:a@b",
                                    " http://a", "\"http://a\"", "$(http://a)", "/usr/bin/true",
                                    "data:text/html,a", "\x01http://a", "file", "`http://a`"})
            QTest::newRow(qPrintable(u"'"_s + QLatin1String(address))) << QByteArray(address);
    }
    void what_is_no_page_is_reported_and_not_opened() {
        QFETCH(QByteArray, address);
        openList("A;" + address + ";system\r\n");
        openRow(0);
        QCOMPARE(boxes(), QStringList{text("error")});
        QCOMPARE(urls(), QStringList());
        checkIsUsable();
    }
    void without_a_selected_page_the_same_is_reported() {
        openList({});
        emit window().Label15.Click();
        QCOMPARE(boxes(), QStringList{text("error")});
        checkIsUsable();
    }
    void an_inert_item_only_disables_delete_and_opens_nothing() {
        openList({}, mine);
        QVERIFY(canDelete());
        window().List1.setItems(std::make_shared<InertItem>());
        chooseRow(0);
        QVERIFY(!canDelete());
        QCOMPARE(labels().first(), u"Mine"_s);
        openRow(0);
        QCOMPARE(urls(), QStringList());
        QCOMPARE(boxes(), QStringList());
        QVERIFY(window().isVisible());
    }
    void closing_it_enables_the_main_window_again() {
        openList(pandocs);
        main().setEnabled(false);
        click(window().chameleonButton1);
        QVERIFY(main().isVisible() && main().isEnabled());
    }
    void a_browser_that_cannot_be_started_is_passed_over() {
        opened->world.browser.found = false;
        openList(pandocs);
        openRow(0);
        QCOMPARE(boxes(), QStringList());
        QVERIFY(loaded<URL>() == nullptr && main().isVisible());
    }
};

TORVANE_TEST(URLTest)
#include "URLTest.moc"
