// SPDX-License-Identifier: MIT
// The window of the tag database: how it opens and closes, what it lists, and what its buttons do.
#include "catalogue/TagInput.h"
#include "core/Pages.h"
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

using namespace torvane;
using namespace Qt::StringLiterals;

class EditDBTest : public OpenedDatabase {
    Q_OBJECT

    ID3& id3() const { return opened->program->id3; }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // Opening and closing
    void the_button_of_the_main_window_opens_the_database_instead_of_it() {
        openDatabase(tetris);
        QVERIFY(window().isVisible());
        QVERIFY(!main().isVisible());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void the_file_of_the_host_is_laid_down_with_a_line_end_and_listed() {
        openDatabase(tetris + wario);
        QCOMPARE(copy(), tetris + wario + "\r\n");
        QCOMPARE(titles(), QStringList({u"TETRIS"_s, u"Wario"_s}));
    }
    void an_empty_file_is_one_line_end_and_an_empty_list() {
        openDatabase("");
        QCOMPARE(copy(), "\r\n");
        QCOMPARE(titles(), QStringList());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void an_error_page_becomes_the_file_and_lists_nothing() {
        openDatabase("<html>\n<body>404</body>\n</html>");
        QCOMPARE(copy(), "<html>\n<body>404</body>\n</html>\r\n");
        QCOMPARE(titles(), QStringList());
    }
    void the_texts_come_from_the_language_file() {
        openDatabase(tetris);
        QCOMPARE(window().Label14.Caption(), u"Filters"_s);
        QCOMPARE(window().Label15.Caption(), u"Entry type"_s);
        QCOMPARE(window().Entradas_0.Caption(), u"SYSTEM only"_s);
        QCOMPARE(window().Entradas_1.Caption(), u"USER only"_s);
        QCOMPARE(window().Entradas_2.Caption(), u"All entries"_s);
        QCOMPARE(window().Label27.Caption(), u"Author"_s);
        QCOMPARE(window().Label5.Caption(), u"Game"_s);
        QCOMPARE(window().Label10.Caption(), u"Age (in days)"_s);
        QCOMPARE(window().Label29.Caption(), u"Company"_s);
        QCOMPARE(window().ChameleonButton2.Caption(), u"Apply filters"_s);
        QCOMPARE(window().ChameleonButton17.Caption(), u"Use ROM.TAG"_s);
        QCOMPARE(window().ChameleonButton3.Caption(), u"Publish a ROM.TAG"_s);
        QStringList headers;
        for (int i = 0; i < 6; ++i) {
            headers += window().ListView1.model().headerData(i, Qt::Horizontal, Qt::DisplayRole).toString();
        }
        QCOMPARE(headers, QStringList({u"Title"_s, u"Company"_s, u"Date"_s, u"Type"_s, u"Author"_s,
                                       u"Information"_s}));
    }
    void the_title_line_and_the_consoles_are_the_same_in_every_language() {
        opened->world.useLanguage("cat");
        openDatabase(tetris);
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » OnLine DataBase"_s);
        QCOMPARE(window().load.Caption(), u"Loading..."_s);
        QCOMPARE(window().GB_CL.Caption(), u"GameBoy Classic"_s);
        QCOMPARE(window().GB_CO.Caption(), u"GameBoy Color"_s);
        QCOMPARE(window().GB_AD.Caption(), u"GameBoy Advance"_s);
        QCOMPARE(window().Label14.Caption(), u"Filtres"_s);
    }
    void the_close_button_brings_the_main_window_back() {
        openDatabase(tetris);
        click(window().chameleonButton1);
        QVERIFY(loaded<EditDB>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void the_window_manager_can_close_it_too() {
        openDatabase(tetris);
        window().close();
        QVERIFY(loaded<EditDB>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void what_it_has_opened_goes_with_it() {
        openDatabase(tetris);
        useRow(0);
        showRow(0);
        QVERIFY(loaded<Form2>() != nullptr && loaded<DB_Info>() != nullptr);
        window().Unload();
        QVERIFY(loaded<Form2>() == nullptr && loaded<DB_Info>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void each_opening_fetches_the_file_again_and_starts_with_the_filters_of_the_design() {
        openDatabase(tetris);
        window().File_Game.setText(u"nothing"_s);
        window().GB_CL.setValue(0);
        click(window().chameleonButton1);
        collectGone();
        publish(tetris + wario);
        clickDatabase();
        QCOMPARE(titles(), QStringList({u"TETRIS"_s, u"Wario"_s}));
        QCOMPARE(window().File_Game.Text(), QString());
        QCOMPARE(window().GB_CL.Value(), 1);
        QVERIFY(window().Entradas_2.Value());
    }

    // The list
    void fields_are_shown_in_their_columns() {
        openDatabase(tetris);
        const QStringList expected{u"TETRIS"_s, u"Nintendo"_s, u"12/03/2002"_s,
                                   u"SYSTEM"_s, u"torvane"_s,  u"Falling blocks"_s};
        for (int number = 0; number < 6; ++number) QCOMPARE(column(number), QStringList{expected[number]});
    }
    void rows_have_the_small_pictures_of_their_consoles() {
        openDatabase(tetris + wario + metroid);
        QList<qint64> pictures;
        for (int row = 0; row < 3; ++row) {
            const auto picture =
                window().ListView1.model().index(row, 0).data(Qt::DecorationRole).value<QPixmap>();
            QCOMPARE(picture.deviceIndependentSize().toSize(), QSize(16, 16));
            pictures += picture.cacheKey();
            QCOMPARE(picture.cacheKey(), window().ImageList1.picture(row + 1).cacheKey());
        }
        QVERIFY(pictures[0] != pictures[1] && pictures[1] != pictures[2]);
    }
    void arrows_page_keys_and_typing_move_through_the_list() {
        QByteArray database;
        for (int i = 0; i < 100; ++i) database += dbLine({"byn", "game" + QByteArray::number(i)});
        openDatabase(database + metroid);
        const auto key = [this](Qt::Key which) { QTest::keyClick(window().windowHandle(), which); };
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        QCOMPARE(window().ListView1.currentRow(), 1);
        key(Qt::Key_PageDown);
        QVERIFY(window().ListView1.currentRow() > 15);
        key(Qt::Key_Home);
        QCOMPARE(window().ListView1.currentRow(), 0);
        key(Qt::Key_M);
        QCOMPARE(window().ListView1.currentRow(), 100);
    }
    void the_information_can_be_made_wider_and_stays_so() {
        openDatabase(tetris);
        const QTableView& view = *window().ListView1.findChild<QTableView*>();
        const QHeaderView& header = *view.horizontalHeader();
        const int before = header.sectionSize(5);
        const auto drag = [&](int x) {
            const QPoint edge = header.mapTo(&window(), QPoint(x, header.height() / 2));
            QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, edge);
            QTest::mouseMove(window().windowHandle(), edge + QPoint(100, 0));
            QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, edge + QPoint(100, 0));
        };
        drag(header.length() - 2);
        QCOMPARE(header.sectionSize(5), before + 100);
        QTRY_VERIFY(view.horizontalScrollBar()->isVisible());
        click(window().ChameleonButton2);
        QCOMPARE(header.sectionSize(5), before + 100);
        drag(header.sectionSize(0) - 1);
        QCOMPARE(header.sectionSize(5), before + 100);
        window().ListView1.setFocus();
        for (int i = 0; i < 10; ++i) QTest::keyClick(window().windowHandle(), Qt::Key_Right);
        QCOMPARE(header.offset(), header.length() - view.viewport()->width());
    }
    void an_entry_can_be_added_after_all_others() {
        openDatabase(tetris);
        chooseRow(0);
        window().LoadGameInDB(u"advance"_s, u"Título"_s, u"Company"_s, u"Date"_s, u"Info"_s, u"Author"_s,
                              u"user"_s);
        QCOMPARE(titles(), QStringList({u"TETRIS"_s, u"Título"_s}));
        QStringList fields;
        for (int number = 1; number < 6; ++number) fields += column(number).last();
        QCOMPARE(fields, QStringList({u"Company"_s, u"Date"_s, u"USER"_s, u"Author"_s, u"Info"_s}));
        QCOMPARE(window().ListView1.currentRow(), 0);
    }

    // Use of an entry
    void an_entry_goes_into_the_next_tag_with_the_date_of_today() {
        openDatabase(tetris + wario);
        useRow(1);
        QCOMPARE(id3().NewTitle, u"Wario"_s);
        QCOMPARE(id3().NewCompany, u"Nintendo"_s);
        QCOMPARE(id3().NewInfo, u"A thief"_s);
        QCOMPARE(id3().NewDate, TagInput::todayAsText());
    }
    void the_game_is_asked_for_above_the_database_which_stays() {
        openDatabase(tetris);
        const Form2& chooser = useRow(0);
        QVERIFY(chooser.isVisible());
        QVERIFY(window().isVisible());
        QCOMPARE(chooser.windowHandle()->transientParent(), window().windowHandle());
    }
    void an_entry_without_a_title_cannot_be_used() {
        openDatabase(dbLine({"byn", "", "Nintendo", "", "", "SYSTEM", ""}));
        chooseRow(0);
        click(window().ChameleonButton17);
        QVERIFY(loaded<Form2>() == nullptr);
        QCOMPARE(id3().NewCompany, QString());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void without_a_selected_entry_the_failure_is_reported_and_the_window_stays() {
        openDatabase(tetris);
        click(window().ChameleonButton17);
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().contains(u"91"_s), qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(loaded<Form2>() == nullptr);
        useRow(0);
    }
    void another_entry_can_be_used_while_the_game_is_being_asked_for() {
        openDatabase(tetris + wario);
        const Form2* chooser = &useRow(0);
        QCOMPARE(&useRow(1), chooser);
        QCOMPARE(id3().NewTitle, u"Wario"_s);
    }

    // Publishing
    void publishing_opens_the_page_of_the_host() {
        opened->world.folder.write(u"data/hosts.ini"_s, "[Hosts]\r\nupdate=http://127.0.0.1:1\r\n");
        opened->open();
        clickDatabase();
        click(window().ChameleonButton3);
        QCOMPARE(opened->world.browser.urls,
                 QStringList{u"http://127.0.0.1:1/modules.php?name=online_db&file=input_db"_s});
    }
    void publishing_from_a_copy_without_servers_opens_the_page_of_the_tree() {
        openDatabase(tetris);
        click(window().ChameleonButton3);
        QCOMPARE(opened->world.browser.urls, QStringList{opened->program->hosts.address(Pages::publish)});
        QVERIFY(opened->world.browser.urls.first().startsWith(u"file:///"_s));
    }
};

TORVANE_TEST(EditDBTest)
#include "EditDBTest.moc"
