// SPDX-License-Identifier: MIT
// The gallery with files that can't be shown: a click keeps what there was, a step describes the file beside
// the picture before it, and a notice says so in both cases.
#include "support/OpenedGallery.h"
#include "support/TestMain.h"

#include <filesystem>

using namespace torvane;
using namespace Qt::StringLiterals;

class CompartirBadPicturesTest : public OpenedGallery {
    Q_OBJECT

    const QStringList goodLabels{u"BitMaP"_s, u"8x8 píxels"_s, u"0KB"_s};

    // A good picture before and after the bad one.
    void openWith(const QByteArray& bytes, const QString& name = u"b.jpg"_s) {
        picture(u"a.bmp"_s, bmpBytes({8, 8}));
        picture(name, bytes);
        picture(u"c.bmp"_s, bmpBytes({8, 8}));
        openGallery();
        QCOMPARE(labels(), goodLabels);
    }
    void checkClickKeepsAll() {
        chooseRow(1);
        QCOMPARE(row(), 1);
        QCOMPARE(labels(), goodLabels);
        QCOMPARE(shownBytes(), bmpBytes({8, 8}));
        QVERIFY(hasNotice());
    }
    void checkIsUsable() {
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
        chooseRow(2);
        QCOMPARE(labels(), goodLabels);
        QVERIFY(!hasNotice());
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void a_bad_file_keeps_the_picture_and_its_labels_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("PNG in another name") << pngBytes();
        QTest::newRow("text") << QByteArray("This is no picture.");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("cut JPEG") << jpegBytes({64, 64}).chopped(40);
        QTest::newRow("cut GIF") << gifHead(9, 9) + gifFrame(0).chopped(1);
        QTest::newRow("cut BMP") << bmpBytes({9, 9}).chopped(1);
        QTest::newRow("JPEG of 60,000 x 60,000") << jpegClaiming(60000, 60000);
        QTest::newRow("BMP of 60,000 x 60,000") << bmpClaiming(60000, 60000);
    }
    void a_bad_file_keeps_the_picture_and_its_labels() {
        QFETCH(QByteArray, bytes);
        openWith(bytes);
        checkClickKeepsAll();
        checkIsUsable();
    }
    void a_step_to_a_bad_file_describes_it_and_measures_the_picture_before_it() {
        openWith(QByteArray(4000, 'x'));
        next();
        QCOMPARE(row(), 1);
        QCOMPARE(labels(), QStringList({u"JPEG BitMap"_s, u"8x8 píxels"_s, u"4KB"_s}));
        QCOMPARE(shownBytes(), bmpBytes({8, 8}));
        QVERIFY(hasNotice());
        checkIsUsable();
        previous();
        QVERIFY(hasNotice());
        previous();
        QVERIFY(!hasNotice());
    }
    void a_file_of_two_gibibytes_is_not_read() {
        picture(u"a.bmp"_s, bmpBytes({8, 8}));
        QVERIFY(QFile::resize(picture(u"b.jpg"_s, jpegBytes()), qint64{2} << 30));
        QVERIFY(QFile::resize(picture(u"c.png"_s, pngBytes()), qint64{2} << 30));
        openGallery();
        checkClickKeepsAll();
        chooseRow(2);
        QCOMPARE(labels(), QStringList({u"Portable Network Graphics"_s, u"¿Uh?"_s, u"2147483KB"_s}));
    }
    void a_first_file_that_is_bad_leaves_the_labels_empty() {
        picture(u"a.jpg"_s, "no picture");
        openGallery();
        QCOMPARE(labels(), QStringList({u""_s, u""_s, u""_s}));
        QVERIFY(hasNotice());
        messages().answer = MsgBoxFlags::answerYes;
        click(window().ChameleonButton8);
        click(window().ChameleonButton9);
        QVERIFY(loaded<AmpliCaptura>() == nullptr);
        QVERIFY(printer().pages.isEmpty() && messages().boxes.isEmpty());
    }
    void a_step_without_any_picture_measures_nothing() {
        picture(u"a.jpg"_s, "no picture");
        picture(u"b.gif"_s, "none either");
        openGallery();
        next();
        QCOMPARE(labels(), QStringList({u"Graphic Interchange Format"_s, u"0x0 píxels"_s, u"0KB"_s}));
    }
    void a_file_that_has_gone_or_has_been_replaced_is_seen_as_it_is_now() {
        openWith(bmpBytes());
        QVERIFY(QFile::remove(opened->world.folder.path(shot(u"b.jpg"_s))));
        checkClickKeepsAll();
        picture(u"b.jpg"_s, jpegBytes({12, 10}));
        chooseRow(1);
        QCOMPARE(window().Dimension.Caption(), u"12x10 píxels"_s);
        QVERIFY(!hasNotice());
    }
    void a_png_that_has_gone_shows_the_stock_picture_and_keeps_weight_and_dimensions() {
        openWith(pngBytes(), u"b.png"_s);
        QVERIFY(QFile::remove(opened->world.folder.path(shot(u"b.png"_s))));
        chooseRow(1);
        QCOMPARE(labels(), QStringList({u"Portable Network Graphics"_s, u"8x8 píxels"_s, u"0KB"_s}));
        QCOMPARE(shownBytes(), stockBytes());
        QVERIFY(hasNotice());
    }
    void a_step_to_a_file_that_has_gone_skips_what_fails() {
        openWith(bmpBytes(), u"b.gif"_s);
        QVERIFY(QFile::remove(opened->world.folder.path(shot(u"b.gif"_s))));
        next();
        QCOMPARE(row(), 1);
        QCOMPARE(labels(), QStringList({u"Graphic Interchange Format"_s, u"8x8 píxels"_s, u"0KB"_s}));
        QVERIFY(hasNotice());
        checkIsUsable();
    }
    void an_emptied_folder_leaves_the_rows_and_no_step_fails() {
        openWith(bmpBytes());
        for (const QString& name : files()) QFile::remove(opened->world.folder.path(shot(name)));
        next();
        previous();
        QCOMPARE(row(), 0);
        QCOMPARE(window().Snap.rowCount(), 3);
        QVERIFY(hasNotice());
        QCOMPARE(opened->world.ends, 0);
    }
    void a_link_to_a_picture_is_shown_and_one_to_nowhere_is_not_listed() {
        opened->world.folder.write(u"elsewhere.bmp"_s, bmpBytes({8, 8}));
        const auto link = [&](const char* target, const char* name) {
            std::filesystem::create_symlink(
                target, opened->world.folder.native(shots.toUtf8() + '/' + name).toStdString());
        };
        link("../../../elsewhere.bmp", "a.bmp");
        link("nowhere.bmp", "b.bmp");
        openGallery();
        QCOMPARE(rows(), QStringList{u"a"_s});
        QCOMPARE(labels(), goodLabels);
    }
    void a_read_protected_picture_is_a_bad_one() {
        openWith(jpegBytes());
        opened->world.folder.setMode(shot(u"b.jpg"_s), 0);
        const OrdinaryUser user;
        checkClickKeepsAll();
    }
    void the_notice_is_in_the_language_of_the_user() {
        opened->world.useLanguage("cat");
        picture(u"a.jpg"_s, "no picture");
        openGallery();
        QCOMPARE(window().Image1.notice(), u"Aquesta captura no es pot mostrar"_s);
    }
    void a_step_to_a_png_that_has_gone_says_so() {
        openWith(pngBytes(), u"b.png"_s);
        QVERIFY(QFile::remove(opened->world.folder.path(shot(u"b.png"_s))));
        next();
        QCOMPARE(labels(), QStringList({u"Portable Network Graphics"_s, u"460x265 píxels"_s, u"0KB"_s}));
        QVERIFY(hasNotice());
    }
    void a_folder_without_pictures_is_no_bad_picture() {
        openGallery();
        QCOMPARE(window().Image1.notice(), QString());
    }
};

TORVANE_TEST(CompartirBadPicturesTest)
#include "CompartirBadPicturesTest.moc"
