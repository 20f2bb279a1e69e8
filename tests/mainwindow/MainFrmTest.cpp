// SPDX-License-Identifier: MIT
// The main window: its load, the selection of games and archives, hints, tools, and its screen position.
#include "platform/forms/Screen.h"
#include "support/Archive.h"
#include "support/Failing.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class MainFrmTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& window() const { return opened->main(); }
    FakeMessages& messages() const { return opened->world.messages; }
    void expectReportedAndGoingOn(const char* number) {
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().endsWith(QStringLiteral(" (%1)").arg(QLatin1String(number))),
                 qPrintable(messages().last()));
        QCOMPARE(messages().boxes.last().flags, 16);
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(window().isVisible());
    }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    // Load
    void the_title_is_the_prefix_and_the_languages_text() {
        QCOMPARE(opened->open().Label1.Caption(), QStringLiteral("Torvane 1.1 » Main menu"));
    }
    void an_empty_library_leaves_the_placeholder_texts_on_the_panel() {
        MainFrm& main = opened->open();
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#1/0"));
        QCOMPARE(main.TotalRom.Caption(), QStringLiteral("0000"));
        QCOMPARE(main.ListView1.rowCount(), 0);
        QCOMPARE(main.GameTitle.Caption(), QStringLiteral("Not available"));
        QCOMPARE(main.GameAutor.Caption(), QStringLiteral("Not available"));
        QCOMPARE(main.GameDate.Caption(), QStringLiteral("Not available"));
        QCOMPARE(main.GameFormat.Caption(), QStringLiteral("Unknown"));
        QCOMPARE(main.GameInfo.Caption(), QStringLiteral("No data"));
        QVERIFY(isSeen(main.Picture1_0));
        QVERIFY(!isSeen(main.Picture1_1));
        QVERIFY(!isSeen(main.Picture1_2));
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_missing_library_folder_counts_as_empty() {
        opened->world.folder.makeFolder(QStringLiteral("roms"));
        QVERIFY(QDir(opened->world.folder.path(QStringLiteral("roms"))).removeRecursively());
        QCOMPARE(opened->open().TotalRom.Caption(), QStringLiteral("0000"));
        QCOMPARE(window().Label41.Caption(), QStringLiteral("#1/0"));
        QCOMPARE(messages().boxes.size(), 0);
    }
    void the_load_selects_the_first_game_and_shows_the_view_face() {
        opened->games(3);
        MainFrm& main = opened->open();
        QCOMPARE(main.Games.ListIndex(), 0);
        QCOMPARE(main.ListView1.currentRow(), 0);
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#1/3"));
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» ROM.TAG Info"));
        QCOMPARE(main.GameTitle.Caption(), QStringLiteral("Not available"));
        QCOMPARE(main.GameAutor.Caption(), QString());
        QCOMPARE(main.GameFormat.Caption(), QStringLiteral(" [3KB]"));
    }
    void an_archive_in_the_first_row_shows_the_archive_face() {
        opened->game(QStringLiteral("a.zip"));
        opened->game(QStringLiteral("b.gb"));
        MainFrm& main = opened->open();
        QVERIFY(isSeen(main.Picture1_2));
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» ZIP Info"));
        QVERIFY(!isSeen(main.ID3_Menu));
    }
    void the_banner_comes_from_the_projects_web_server() {
        opened->world.folder.write(QStringLiteral("data/hosts.ini"), "[Hosts]\nweb=https://web.example\n");
        QCOMPARE(opened->open().ShockwaveFlash1.Movie(), QStringLiteral("https://web.example/banner.swf"));
    }
    void twin_labels_show_the_same_text_after_any_change() {
        opened->game(QStringLiteral("a.gb"));
        opened->game(QStringLiteral("b.zip"));
        const QList<QPair<const char*, const char*>> twins = {
            {"GameAutor", "Label33"},     {"GameDate", "Label31"},      {"GameFormat", "Label29"},
            {"GameInfo", "Label18"},      {"GameTitle", "Label35"},     {"Label11", "Label12"},
            {"Label13", "Label38"},       {"Label16", "Label40"},       {"Label17", "Label37"},
            {"Label2", "Label3"},         {"Label41", "Label42"},       {"Label43", "Label44"},
            {"Label45", "Label56"},       {"Label46", "Label55"},       {"Label57", "Label58"},
            {"Label9", "Label19"},        {"Lbl_ID3Author", "Label34"}, {"Lbl_ID3Date", "Label32"},
            {"Lbl_ID3Format", "Label30"}, {"Lbl_ID3Info", "Label28"},   {"Lbl_ID3Title", "Label36"},
            {"TotalRom", "Label39"}};
        MainFrm& main = opened->open();
        const auto label = [&](const char* name) {
            return main.findChild<Label*>(QString::fromLatin1(name));
        };
        const auto compareAll = [&] {
            for (const auto& [source, twin] : twins) {
                QVERIFY2(label(source)->Caption() == label(twin)->Caption(), source);
            }
        };
        compareAll();
        opened->chooseRow(1);
        compareAll();
        opened->chooseRow(0);
        click(main.Edit_Menu);
        compareAll();
        for (const auto& [source, twin] : twins) {
            label(source)->setCaption(QString::fromLatin1(source) + QStringLiteral(" 1"));
            QCOMPARE(label(twin)->Caption(), QString::fromLatin1(source) + QStringLiteral(" 1"));
            label(source)->setCaption(QString());
            QCOMPARE(label(twin)->Caption(), QString());
        }
    }

    // Selection
    void an_archive_shows_its_name_and_size_and_hides_the_tabs() {
        opened->game(QStringLiteral("a.gb"));
        opened->game(QStringLiteral("pack.zip"), QByteArray(1572864, 'z'));
        MainFrm& main = opened->open();
        opened->chooseRow(1);
        QVERIFY(isSeen(main.Zipper));
        QVERIFY(isSeen(main.Picture1_2));
        QVERIFY(!isSeen(main.Edit_Menu));
        QVERIFY(!isSeen(main.ID3_Menu));
        QCOMPARE(main.Label10.Caption(), QStringLiteral("pack.zip"));
        QCOMPARE(main.Label14.Caption(), QStringLiteral("pack.zip"));
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» ZIP Info"));
        QCOMPARE(main.Label8.Caption(), QStringLiteral("1.5MB"));
        QCOMPARE(main.Label20.Caption(), QStringLiteral("1.5MB"));
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#2/2"));
    }
    void the_size_of_an_archive_is_cut_to_five_characters_data() {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << 0 << QStringLiteral("0MB");
        QTest::newRow("one byte") << 1 << QStringLiteral("0.000MB");
        QTest::newRow("a third") << 349525 << QStringLiteral("0.333MB");
        QTest::newRow("one") << 1048576 << QStringLiteral("1MB");
        QTest::newRow("ten and something") << 11258999 << QStringLiteral("10.73MB");
    }
    void the_size_of_an_archive_is_cut_to_five_characters() {
        QFETCH(int, bytes);
        QFETCH(QString, text);
        opened->game(QStringLiteral("pack.zip"), QByteArray(bytes, 'z'));
        QCOMPARE(opened->open().Label8.Caption(), text);
    }
    void the_next_game_brings_the_tabs_back() {
        opened->game(QStringLiteral("a.zip"));
        opened->game(QStringLiteral("b.gb"));
        MainFrm& main = opened->open();
        opened->chooseRow(1);
        QVERIFY(!isSeen(main.Zipper));
        QVERIFY(!isSeen(main.Picture1_2));
        QVERIFY(isSeen(main.Edit_Menu));
        QVERIFY(isSeen(main.ID3_Menu));
        QVERIFY(isSeen(main.Picture1_0));
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» ROM.TAG Info"));
    }
    void a_game_after_an_archive_keeps_the_edit_face_and_its_heading() {
        opened->game(QStringLiteral("a.gb"));
        opened->game(QStringLiteral("b.zip"));
        MainFrm& main = opened->open();
        click(main.Edit_Menu);
        opened->chooseRow(1);
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» ZIP Info"));
        opened->chooseRow(0);
        QVERIFY(isSeen(main.Picture1_1));
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» Edit ROM.TAG"));
    }
    void the_tag_record_is_set_for_an_archive_too() {
        opened->game(QStringLiteral("a.gb"), QByteArray(3000, 'r') + "ID3TAG\xA7"
                                                                     "Acme\xA7T\xA7"
                                                                     "1\xA7I\xA7"
                                                                     "3000\xA7\r\n");
        opened->game(QStringLiteral("b.zip"), QByteArray(5000, 'z'));
        MainFrm& main = opened->open();
        QCOMPARE(opened->program->id3.RomTag.Company, QStringLiteral("Acme"));
        opened->chooseRow(1);
        QCOMPARE(opened->program->id3.RomTag.Company, QString());
        QCOMPARE(opened->program->id3.RomTag.Format, QStringLiteral("Formato .ZIP"));
        QCOMPARE(main.EditID3Company.Text(), QString());
    }
    void an_extension_in_upper_case_is_no_archive_for_the_panel() {
        opened->game(QStringLiteral("A.ZIP"));
        QVERIFY(!isSeen(opened->open().Picture1_2));
        QVERIFY(isSeen(window().ID3_Menu));
    }

    void a_vanished_archive_is_reported_and_the_program_goes_on() {
        opened->game(QStringLiteral("a.gb"));
        const QString path = opened->game(QStringLiteral("b.zip"));
        opened->open();
        QVERIFY(QFile::remove(path));
        opened->chooseRow(1);
        expectReportedAndGoingOn("53");
        opened->chooseRow(0);
        QVERIFY(isSeen(window().ID3_Menu));
        QCOMPARE(messages().boxes.size(), 1);
    }
    void an_unreadable_archive_is_reported_and_the_program_goes_on() {
        opened->game(QStringLiteral("a.gb"));
        opened->game(QStringLiteral("b.zip"));
        opened->world.folder.setMode(QStringLiteral("roms/b.zip"), 0);
        opened->open();
        const OrdinaryUser user;
        opened->chooseRow(1);
        expectReportedAndGoingOn("70");
    }
    void a_vanished_or_unreadable_game_appears_untagged() {
        opened->game(QStringLiteral("a.gb"));
        const QString path = opened->game(QStringLiteral("b.gb"));
        opened->game(QStringLiteral("c.gb"), QByteArray(3000, 'r') + "ID3TAG\xA7"
                                                                     "Acme\xA7T\xA7"
                                                                     "1\xA7I\xA7"
                                                                     "3000\xA7\r\n");
        opened->open();
        QVERIFY(QFile::remove(path));
        opened->world.folder.setMode(QStringLiteral("roms/c.gb"), 0);
        const OrdinaryUser user;
        for (const int row : {1, 2}) {
            opened->chooseRow(row);
            QCOMPARE(window().GameTitle.Caption(), QStringLiteral("Not available"));
            QCOMPARE(window().GameAutor.Caption(), QString());
            QCOMPARE(window().Label41.Caption(), QStringLiteral("#%1/3").arg(row + 1));
        }
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }

    // Hints and tools
    void the_pointer_over_refresh_shows_a_hint_and_the_displayer_restores_the_heading() {
        MainFrm& main = opened->open();
        QCOMPARE(main.Label13.Caption(), QStringLiteral("» Game list"));
        QCOMPARE(main.displayer.Interval(), 1000);
        QVERIFY(!main.displayer.Enabled());
        hover(main.Refresh);
        QCOMPARE(main.Label13.Caption(), QStringLiteral("» Refresh the list"));
        QVERIFY(main.displayer.Enabled());
        QTRY_COMPARE_WITH_TIMEOUT(main.Label13.Caption(), QStringLiteral("» Game list"), 3000);
        QVERIFY(!main.displayer.Enabled());
    }
    void the_other_tools_show_hints_in_the_same_way() {
        MainFrm& main = opened->open();
        emit main.Searcher.MouseMove(0, 0, 1, 1);
        QCOMPARE(main.Label13.Caption(), QStringLiteral("» Advanced search"));
        emit main.Zipper.MouseMove(0, 0, 1, 1);
        QCOMPARE(main.Label13.Caption(), QStringLiteral("» ZIP contents"));
        emit main.displayer.Tick();
        QCOMPARE(main.Label13.Caption(), QStringLiteral("» Game list"));
        QVERIFY(!main.displayer.Enabled());
    }
    void a_tool_opens_its_window_data() {
        QTest::addColumn<QByteArray>("button");
        QTest::addColumn<QByteArray>("opens");
        const auto row = [](const char* button, const char* opens) {
            QTest::newRow(button) << QByteArray(button) << QByteArray(opens);
        };
        row("chameleonButton3", "EditDB");
        row("chameleonButton4", "Compartir");
        row("chameleonButton5", "Aboutfrm");
        row("chameleonButton6", "SearchROM");
        row("chameleonButton7", "URL");
        row("chameleonButton8", "ConfigNew");
        row("ChameleonButton12", "Torvette");
        row("Searcher", "AdvSearch");
        row("Zipper", "ZIP_Viewer");
        row("ChameleonButton13", "ZIP_Viewer");
        row("chameleonButton1", "TorvMsg");
    }
    void a_tool_opens_its_window() {
        QFETCH(QByteArray, button);
        QFETCH(QByteArray, opens);
        writeArchive(opened->world.folder.path(QStringLiteral("roms/a.zip")),
                     {{QStringLiteral("m.gb"), "x"}});
        MainFrm& main = opened->open();
        auto* tool = main.findChild<chameleonButton*>(QString::fromLatin1(button));
        QVERIFY(tool->Enabled() && tool->isEnabled());
        click(*tool);
        QStringList others;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window != &main) others.append(window->objectName());
        }
        QCOMPARE(others, QStringList{QString::fromLatin1(opens)});
        const QByteArrayList replacing{"ZIP_Viewer", "EditDB", "Torvette", "Compartir", "Aboutfrm", "URL"};
        QCOMPARE(main.isVisible(), !replacing.contains(opens));
    }
    void the_tools_of_the_list_and_of_the_window_are_enabled() {
        MainFrm& main = opened->open();
        for (const chameleonButton* button : {&main.Refresh, &main.chameleonButton1, &main.chameleonButton2,
                                              &main.chameleonButton14, &main.chameleonButton15}) {
            QVERIFY2(button->isEnabled(), qPrintable(button->objectName()));
        }
    }
    void minimise_moves_the_window_to_the_task_bar() {
        MainFrm& main = opened->open();
        click(main.chameleonButton2);
        QCOMPARE(main.windowStateWord(), Form::minimised);
        QVERIFY(main.design().inTaskBar);
    }

    void the_emulator_setting_has_no_effect() {
        opened->world.setSetting("Emulador", QStringLiteral("Other") + QString(600, QLatin1Char(' ')) +
                                                 QStringLiteral("1"));
        opened->game(QStringLiteral("a.gb"));
        opened->open();
        QCOMPARE(opened->program->emulators.EmulatorCommand,
                 opened->world.appPath() + QStringLiteral("\\emuladores\\mgba.sh"));
        QCOMPARE(messages().boxes.size(), 0);
    }

    // Screen position
    void the_title_band_moves_the_window() {
        MainFrm& main = opened->open();
        main.moveTo(100 * twipsPerPixel, 90 * twipsPerPixel);
        const QPoint hold = main.Label1.geometry().center();
        QTest::mousePress(main.windowHandle(), Qt::LeftButton, {}, hold);
        QCOMPARE(main.cursor().shape(), Qt::SizeAllCursor);
        QTest::mouseMove(main.windowHandle(), hold + QPoint(20, 30));
        QCOMPARE(main.pos(), QPoint(120, 120));
        QTest::mouseRelease(main.windowHandle(), Qt::LeftButton, {}, hold);
        QCOMPARE(main.pos(), QPoint(120, 120));
        QCOMPARE(main.cursor().shape(), Qt::ArrowCursor);
        QTest::mouseMove(main.windowHandle(), hold + QPoint(5, 5));
        QCOMPARE(main.pos(), QPoint(120, 120));
    }
    void a_window_dropped_off_screen_moves_back_inside_data() {
        QTest::addColumn<QPoint>("by");
        QTest::addColumn<bool>("leftEdge");
        QTest::addColumn<bool>("topEdge");
        QTest::newRow("left and above") << QPoint(-500, -400) << true << true;
        QTest::newRow("right and below") << QPoint(5000, 5000) << false << false;
    }
    void a_window_dropped_off_screen_moves_back_inside() {
        QFETCH(QPoint, by);
        QFETCH(bool, leftEdge);
        QFETCH(bool, topEdge);
        MainFrm& main = opened->open();
        main.moveTo(100 * twipsPerPixel, 90 * twipsPerPixel);
        const QPoint hold = main.Label1.geometry().center();
        QTest::mousePress(main.windowHandle(), Qt::LeftButton, {}, hold);
        QTest::mouseMove(main.windowHandle(), hold + by);
        QCOMPARE(main.pos(), QPoint(100, 90) + by);
        QTest::mouseRelease(main.windowHandle(), Qt::LeftButton, {}, hold);
        const QRect screen = Screen::geometry();
        QCOMPARE(main.x(), leftEdge ? 0 : screen.width() - main.width());
        QCOMPARE(main.y(), topEdge ? 0 : screen.height() - main.height());
    }
    void the_next_start_centres_the_window_again() {
        const QPoint centred = opened->open().pos();
        window().moveTo(0, 0);
        opened->close();
        QCOMPARE(opened->open().pos(), centred);
        const QRect screen = Screen::geometry();
        QVERIFY(qAbs(window().geometry().center().x() - screen.center().x()) <= 1);
    }
};

TORVANE_TEST(MainFrmTest)
#include "MainFrmTest.moc"
