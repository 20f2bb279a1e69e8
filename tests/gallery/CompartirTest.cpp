// SPDX-License-Identifier: MIT
// The gallery: its list, what it shows of each kind of picture, and the way through the folder.
#include "support/CutCaptions.h"
#include "support/LanguageRows.h"
#include "support/OpenedGallery.h"
#include "support/TestMain.h"

#include <filesystem>

using namespace torvane;
using namespace Qt::StringLiterals;

class CompartirTest : public OpenedGallery {
    Q_OBJECT

    // A file of exactly so many bytes, with a picture at its beginning.
    static QByteArray ofLength(qsizetype length) { return bmpBytes({8, 8}).leftJustified(length, '\0'); }
    int iconOf(int row) const {
        const auto shown = window().Snap.model().index(row, 0).data(Qt::DecorationRole).value<QPixmap>();
        for (int number = 1; number <= 4; ++number) {
            if (!shown.isNull() && shown.cacheKey() == window().ImageList1.picture(number).cacheKey()) {
                return number;
            }
        }
        return 0;
    }
    void clickAllButtons() const {
        for (const chameleonButton* button :
             {&window().ChameleonButton6, &window().ChameleonButton7, &window().ChameleonButton8,
              &window().ChameleonButton9, &window().ChameleonButton10}) {
            click(*button);
        }
    }
    void checkNothingHappens() {
        messages().answer = MsgBoxFlags::answerYes;
        const auto boxes = messages().boxes.size();
        clickAllButtons();
        QCOMPARE(messages().boxes.size(), boxes);
        QCOMPARE(labels(), QStringList({u""_s, u""_s, u""_s}));
        QVERIFY(loaded<AmpliCaptura>() == nullptr);
        QVERIFY(printer().pages.isEmpty());
        QVERIFY(window().isVisible() && opened->world.ends == 0);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // The window
    void it_replaces_the_main_window_which_comes_back() {
        picture(u"a.bmp"_s);
        openGallery();
        QVERIFY(!main().isVisible());
        click(window().chameleonButton1);
        QVERIFY(loaded<Compartir>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void the_window_manager_closes_it_in_the_same_way() {
        openGallery();
        window().close();
        QVERIFY(loaded<Compartir>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void it_can_be_minimised() {
        openGallery();
        click(window().ChameleonButton5);
        QCOMPARE(window().windowStateWord(), Form::minimised);
    }
    void the_title_and_the_headings_come_from_the_language_file() {
        openGallery();
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » Screenshot gallery"_s);
        QCOMPARE(window().Label5.Caption(), text("imgformat"));
        QCOMPARE(window().Label8.Caption(), text("imgsize"));
        QCOMPARE(window().Label7.Caption(), text("imgweight"));
    }
    void every_caption_fits_data() { languageRows(); }
    void every_caption_fits() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        const QByteArray large = jpegBytes({4000, 3000});
        for (const char* name : {"a.jpg", "b.gif", "c.bmp", "d.png"}) picture(QLatin1String(name), large);
        openGallery();
        for (int row = 0; row < 4; ++row) {
            chooseRow(row);
            CutCaptions cut;
            QCOMPARE(cut.check(window()), 7);
            QCOMPARE(cut.found.join(u'\n'), QString());
        }
    }

    // The list
    void the_rows_are_the_pictures_of_the_folder_by_the_first_piece_of_their_names() {
        for (const char* name : {"b.one.gif", "A.JPG", "c.png", "d.bmp", "notes.txt", "e.jpeg", ".h.jpg"}) {
            picture(QLatin1String(name));
        }
        opened->world.folder.makeFolder(shot(u"folder.jpg"_s));
        openGallery();
        QCOMPARE(rows(), QStringList({u"A"_s, u"b"_s, u"c"_s, u"d"_s}));
    }
    void a_row_has_a_key_with_its_place() {
        picture(u"a.bmp"_s);
        picture(u"b.bmp"_s);
        openGallery();
        const RowModel& model = window().Snap.model();
        QCOMPARE(model.index(0, 0).data(RowModel::KeyRole).toString(), u"img0"_s);
        QCOMPARE(model.index(1, 0).data(RowModel::KeyRole).toString(), u"img1"_s);
    }
    void a_row_has_the_icon_of_its_extension_or_that_of_the_row_above() {
        for (const char* name :
             {"a.001.jpg", "b.jpg", "c.BMP", "d.gif", "e.png", "scan.001.jpg", "t.old.bmp"}) {
            picture(QLatin1String(name));
        }
        openGallery();
        QList<int> icons;
        for (int row = 0; row < 7; ++row) icons += iconOf(row);
        QCOMPARE(icons, QList<int>({0, 1, 2, 3, 4, 4, 4}));
    }
    void the_folder_is_that_of_the_setting() {
        picture(u"usual.bmp"_s);
        opened->world.folder.write(u"mine/own.bmp"_s, bmpBytes());
        opened->world.setSetting("Capturas", opened->world.appPath() + u"\\mine"_s);
        openGallery();
        QCOMPARE(rows(), QStringList{u"own"_s});
    }
    void the_folder_may_be_spelled_in_many_ways_data() {
        QTest::addColumn<QString>("ending");
        for (const char* ending :
             {"\\mine", "\\mine\\", "/mine/", "\\MINE", "\\Mine\\\\", "\\roms\\..\\mine"}) {
            QTest::newRow(ending) << QString::fromLatin1(ending);
        }
    }
    void the_folder_may_be_spelled_in_many_ways() {
        QFETCH(QString, ending);
        opened->world.folder.write(u"mine/a.bmp"_s, ofLength(3000));
        opened->world.folder.write(u"mine/b.png"_s, "x");
        opened->world.setSetting("Capturas", opened->world.appPath() + ending);
        openGallery();
        QCOMPARE(labels(), QStringList({u"BitMaP"_s, u"8x8 píxels"_s, u"3KB"_s}));
        next();
        QCOMPARE(window().Tamany.Caption(), u"0KB"_s);
        messages().answer = MsgBoxFlags::answerYes;
        click(window().ChameleonButton10);
        QCOMPARE(opened->world.folder.entries(u"mine"_s), QStringList{u"a.bmp"_s});
    }
    void a_double_click_does_nothing() {
        picture(u"a.bmp"_s);
        openGallery();
        doubleClick(window().Snap, window().Snap.rowRect(0).center());
        QTest::keyClick(window().windowHandle(), Qt::Key_Return);
        QVERIFY(loaded<AmpliCaptura>() == nullptr);
        QCOMPARE(messages().boxes.size(), 0);
    }

    // What is shown
    void the_first_picture_is_shown_at_once() {
        picture(u"a.bmp"_s, ofLength(12'345));
        picture(u"b.gif"_s, gifBytes());
        openGallery();
        QCOMPARE(row(), 0);
        QCOMPARE(labels(), QStringList({u"BitMaP"_s, u"8x8 píxels"_s, u"12KB"_s}));
        QCOMPARE(shownBytes(), ofLength(12'345));
    }
    void a_click_shows_and_describes_a_picture_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("format");
        QTest::newRow("JPEG") << u"b.jpg"_s << jpegBytes({30, 20}) << u"JPEG BitMap"_s;
        QTest::newRow("GIF") << u"b.gif"_s << gifBytes({30, 20}) << u"Graphic Interchange Format"_s;
        QTest::newRow("BMP") << u"b.BmP"_s << bmpBytes({30, 20}) << u"BitMaP"_s;
        QTest::newRow("JPEG in a GIF's name")
            << u"b.gif"_s << jpegBytes({30, 20}) << u"Graphic Interchange Format"_s;
    }
    void a_click_shows_and_describes_a_picture() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, format);
        picture(u"a.bmp"_s);
        picture(name, bytes);
        openGallery();
        chooseRow(1);
        QCOMPARE(shownBytes(), bytes);
        QCOMPARE(labels(),
                 QStringList({format, u"30x20 píxels"_s, QString::number(bytes.size() / 1000) + u"KB"_s}));
        QVERIFY(!hasNotice());
    }
    void a_png_shows_the_stock_picture_its_weight_and_a_question_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("weight");
        QTest::newRow("PNG") << pngBytes() << u"0KB"_s;
        QTest::newRow("anything") << QByteArray(2500, 'x') << u"2KB"_s;
        QTest::newRow("JPEG") << jpegBytes().leftJustified(4999, '\0') << u"4KB"_s;
        QTest::newRow("nothing") << QByteArray() << u"0KB"_s;
    }
    void a_png_shows_the_stock_picture_its_weight_and_a_question() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, weight);
        picture(u"a.bmp"_s);
        picture(u"b.png"_s, bytes);
        openGallery();
        chooseRow(1);
        QCOMPARE(labels(), QStringList({u"Portable Network Graphics"_s, u"¿Uh?"_s, weight}));
        QCOMPARE(shownBytes(), stockBytes());
        QVERIFY(!stockBytes().isEmpty() && !hasNotice());
    }
    void the_weight_is_in_whole_units_of_1000_bytes_data() {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<QString>("weight");
        QTest::newRow("999") << 999 << u"0KB"_s;
        QTest::newRow("1000") << 1000 << u"1KB"_s;
        QTest::newRow("1023") << 1023 << u"1KB"_s;
        QTest::newRow("1999") << 1999 << u"1KB"_s;
    }
    void the_weight_is_in_whole_units_of_1000_bytes() {
        QFETCH(int, bytes);
        picture(u"a.bmp"_s, ofLength(bytes));
        openGallery();
        QTEST(window().Tamany.Caption(), "weight");
    }
    void an_unknown_extension_leaves_the_format_as_it_was() {
        picture(u"a.gif"_s, gifBytes());
        picture(u"scan.001.jpg"_s, jpegBytes({16, 8}));
        openGallery();
        chooseRow(1);
        QCOMPARE(labels(), QStringList({u"Graphic Interchange Format"_s, u"16x8 píxels"_s,
                                        QString::number(jpegBytes({16, 8}).size() / 1000) + u"KB"_s}));
    }
    void a_large_picture_is_measured_by_its_header() {
        picture(u"a.jpg"_s, jpegBytes({1600, 1440}));
        openGallery();
        QCOMPARE(window().Dimension.Caption(), u"1600x1440 píxels"_s);
        QCOMPARE(window().Image1.geometry(), QRect(268, 27, 220, 154));
    }

    // Previous and next
    void next_and_previous_step_through_the_list() {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) picture(QLatin1String(name));
        picture(u"b.gif"_s, gifBytes({7, 5}));
        openGallery();
        next();
        QCOMPARE(row(), 1);
        next();
        QCOMPARE(row(), 2);
        QCOMPARE(labels(), QStringList({u"Graphic Interchange Format"_s, u"7x5 píxels"_s, u"0KB"_s}));
        previous();
        QCOMPARE(row(), 1);
        QCOMPARE(window().Format.Caption(), u"BitMaP"_s);
    }
    void at_the_ends_the_selection_stays_and_the_labels_are_made_anew() {
        picture(u"a.bmp"_s);
        picture(u"b.bmp"_s);
        openGallery();
        next();
        picture(u"b.bmp"_s, ofLength(5000));
        next();
        QCOMPARE(row(), 1);
        QCOMPARE(labels(), QStringList({u"BitMaP"_s, u"8x8 píxels"_s, u"5KB"_s}));
        previous();
        picture(u"a.bmp"_s, ofLength(7000));
        previous();
        QCOMPARE(row(), 0);
        QCOMPARE(window().Tamany.Caption(), u"7KB"_s);
    }
    void a_png_that_is_reached_by_a_step_has_the_measure_of_the_stock_picture() {
        picture(u"a.bmp"_s);
        picture(u"b.png"_s, pngBytes({30, 20}));
        openGallery();
        next();
        QCOMPARE(labels(), QStringList({u"Portable Network Graphics"_s, u"460x265 píxels"_s, u"0KB"_s}));
        QCOMPARE(shownBytes(), stockBytes());
        QVERIFY(!hasNotice());
    }
    void a_step_to_a_jpeg_in_a_pngs_name_goes_by_the_name() {
        picture(u"a.bmp"_s);
        picture(u"b.png"_s, jpegBytes({30, 20}));
        openGallery();
        next();
        QCOMPARE(window().Dimension.Caption(), u"460x265 píxels"_s);
        QCOMPARE(shownBytes(), stockBytes());
    }
    void the_arrow_keys_step() {
        for (const char* name : {"a.bmp", "b.bmp", "c.png"}) picture(QLatin1String(name));
        openGallery();
        const auto press = [&](Qt::Key key) { QTest::keyClick(window().windowHandle(), key); };
        press(Qt::Key_Right);
        QCOMPARE(row(), 1);
        press(Qt::Key_Down);
        QCOMPARE(row(), 2);
        QCOMPARE(window().Dimension.Caption(), u"¿Uh?"_s);
        press(Qt::Key_Left);
        press(Qt::Key_Up);
        QCOMPARE(row(), 0);
        click(window().ChameleonButton7);
        press(Qt::Key_Right);
        QCOMPARE(row(), 2);
        QCOMPARE(window().Dimension.Caption(), u"460x265 píxels"_s);
    }

    // Folders
    void an_empty_folder_gives_no_rows_and_the_buttons_do_nothing() {
        openGallery();
        QCOMPARE(rows(), QStringList());
        QCOMPARE(messages().boxes.size(), 0);
        checkNothingHappens();
    }
    void a_missing_folder_is_reported_and_the_window_stays_data() {
        QTest::addColumn<QString>("folder");
        QTest::newRow("missing") << u"/nowhere/at all"_s;
        QTest::newRow("of another system") << u"C:\\Capturas"_s;
        QTest::newRow("no path") << u"No hay seleccionado. Por favor, elige uno."_s;
        QTest::newRow("nothing") << QString();
    }
    void a_missing_folder_is_reported_and_the_window_stays() {
        QFETCH(QString, folder);
        opened->world.setSetting("Capturas", folder);
        openGallery();
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), text("invaliddir"));
        QCOMPARE(messages().boxes.first().title, u"Torvane ··· Error!"_s);
        QCOMPARE(messages().boxes.first().flags, 48);
        checkNothingHappens();
    }
    void a_folder_that_cannot_be_read_is_reported() {
        picture(u"a.bmp"_s);
        opened->world.folder.setMode(shots, 0311);
        {
            const OrdinaryUser user;
            openGallery();
        }
        QCOMPARE(messages().last(), text("invaliddir"));
        QCOMPARE(rows(), QStringList());
        opened->world.folder.setMode(shots, 0755);
    }
    void a_file_in_place_of_the_folder_is_reported() {
        opened->world.setSetting("Capturas", opened->game(u"g001.gb"_s));
        openGallery();
        QCOMPARE(messages().last(), text("invaliddir"));
    }
    void names_of_any_kind_are_listed_and_shown() {
        const QByteArrayList names{"  two blanks .bmp", "100% \"quoted\".bmp", "<b>bold.bmp",
                                   "back\\slash.bmp",   "no\xFFutf8.bmp",      "\xC3\xB1.bmp"};
        for (const QByteArray& name : names) {
            opened->world.folder.writeNative(shots.toUtf8() + '/' + name, ofLength(3000));
        }
        openGallery();
        QCOMPARE(rows().size(), names.size());
        for (int row = 0; row < names.size(); ++row) {
            window().Tamany.setCaption({});
            chooseRow(row);
            QCOMPARE(window().Tamany.Caption(), u"3KB"_s);
        }
        QVERIFY(rows().contains(u"100% \"quoted\""_s) && rows().contains(u"  two blanks "_s));
    }
    void a_folder_of_100000_files_is_listed() {
        // Most disks need a quarter of a minute for them, memory half a second.
        const QString memory = u"/dev/shm"_s;
        const TestFolder folder(QFileInfo(memory).isWritable() ? memory : QDir::tempPath());
        constexpr int mostLinks = 60'000; // to one file; ext4 allows 65,000
        std::string file;
        for (int i = 0; i < 100'000; ++i) {
            const QString name = u"%1.bmp"_s.arg(i, 5, 10, QLatin1Char('0'));
            if (i % mostLinks == 0) {
                file = folder.write(name, bmpBytes()).toStdString();
            } else {
                std::filesystem::create_hard_link(file, folder.path(name).toStdString());
            }
        }
        opened->world.setSetting("Capturas", folder.path());
        openGallery();
        QCOMPARE(window().Snap.rowCount(), 100'000);
        QCOMPARE(window().Dimension.Caption(), u"160x144 píxels"_s);
        QTest::keyClick(window().windowHandle(), Qt::Key_End);
        QCOMPARE(row(), 99'999);
        QCOMPARE(iconOf(99'999), 2);
    }
};

TORVANE_TEST(CompartirTest)
#include "CompartirTest.moc"
