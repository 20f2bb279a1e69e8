// SPDX-License-Identifier: MIT
// The enlarged view: how a picture is fitted, doubled, halved and centred, and how the window is used.
#include "support/CutCaptions.h"
#include "support/LanguageRows.h"
#include "support/NotedRows.h"
#include "support/OpenedGallery.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class AmpliCapturaTest : public OpenedGallery {
    Q_OBJECT

    QRect place() const { return view().IMG_BIG.geometry(); }
    void zoomIn() const { click(view().ChameleonButton3); }
    void zoomOut() const { click(view().ChameleonButton4); }
    void pressKey(Qt::Key key, Qt::KeyboardModifiers keys = {}) const {
        QTest::keyClick(view().windowHandle(), key, keys);
    }
    void turnWheel(int eighths) const {
        QWheelEvent event({100, 100}, view().mapToGlobal(QPointF(100, 100)), {}, {0, eighths}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view(), &event);
    }
    void open(QSize size) {
        picture(u"a.bmp"_s, bmpBytes(size));
        openGallery();
        enlarge();
    }
    // In the middle of the window, and half of the title's height further down; edges are rounded.
    void checkIsCentred() const {
        QVERIFY(std::abs(2 * place().x() + place().width() - 500) <= 2);
        QVERIFY(std::abs(2 * place().y() + place().height() - 421) <= 2);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void it_opens_above_the_gallery_and_closes_without_it() {
        open({160, 144});
        QVERIFY(window().isVisible());
        QCOMPARE(view().windowHandle()->transientParent(), window().windowHandle());
        QCOMPARE(view().Label1.Caption(), u"Torvane 1.1 » Enlarged screenshot"_s);
        click(view().chameleonButton1);
        QVERIFY(loaded<AmpliCaptura>() == nullptr);
        QVERIFY(window().isVisible() && !main().isVisible());
    }
    void it_closes_with_the_gallery() {
        open({160, 144});
        click(window().chameleonButton1);
        QVERIFY(loaded<AmpliCaptura>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void escape_closes_it() {
        open({160, 144});
        pressKey(Qt::Key_Escape);
        QVERIFY(loaded<AmpliCaptura>() == nullptr);
        QVERIFY(window().isVisible());
    }
    void every_caption_fits_data() { languageRows(); }
    void every_caption_fits() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        open({16, 16});
        CutCaptions cut;
        QCOMPARE(cut.check(view()), 1);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }

    void a_small_picture_keeps_its_size_and_is_centred() {
        open({160, 144});
        QCOMPARE(place(), QRect(170, 139, 160, 144));
        QVERIFY(hasColour(imageOf(view()), Qt::red));
    }
    void a_larger_picture_is_cut_to_the_window_direction_by_direction_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("shown");
        QTest::newRow("too wide") << QSize(1000, 100) << QSize(480, 100);
        QTest::newRow("too high") << QSize(100, 1000) << QSize(100, 367);
        QTest::newRow("both") << QSize(1600, 1200) << QSize(480, 367);
        QTest::newRow("just fitting") << QSize(480, 366) << QSize(480, 366);
    }
    void a_larger_picture_is_cut_to_the_window_direction_by_direction() {
        QFETCH(QSize, size);
        open(size);
        QTEST(place().size(), "shown");
        checkIsCentred();
    }
    void a_cut_picture_is_shown_whole_in_other_proportions() {
        open({1600, 1200});
        const QImage shown = imageOf(view());
        const auto red = [&](int x, int y) { return shown.pixelColor(x, y).red(); };
        // The four fields of the picture, which grow darker.
        QVERIFY(red(20, 40) > red(480, 40) && red(480, 40) > red(20, 380) && red(20, 380) > red(480, 380));
    }
    void zooming_in_doubles_and_zooming_out_gives_the_same_size_again() {
        open({160, 144});
        const QRect before = place();
        zoomIn();
        QCOMPARE(place(), QRect(90, 67, 320, 288));
        zoomOut();
        QCOMPARE(place(), before);
    }
    void at_the_limit_zooming_in_changes_nothing() {
        open({160, 144});
        zoomIn();
        const QRect largest = place();
        zoomIn();
        QCOMPARE(place(), largest);
        checkIsCentred();
    }
    void the_first_size_can_be_halved_once() {
        open({160, 144});
        zoomOut();
        QCOMPARE(place().size(), QSize(80, 72));
        checkIsCentred();
        zoomOut();
        QCOMPARE(place().size(), QSize(80, 72));
        zoomIn();
        QCOMPARE(place().size(), QSize(160, 144));
    }
    void a_cut_picture_is_halved_from_its_cut_size() {
        open({1600, 1200});
        zoomOut();
        QCOMPARE(place().size(), QSize(240, 183));
        zoomOut();
        QCOMPARE(place().size(), QSize(240, 183));
        zoomIn();
        QCOMPARE(place().size(), QSize(480, 367));
    }
    void a_second_picture_begins_anew_in_the_open_window() {
        picture(u"a.bmp"_s, bmpBytes({160, 144}));
        picture(u"b.bmp"_s, bmpBytes({40, 30}));
        openGallery();
        enlarge();
        const AmpliCaptura* first = &view();
        zoomIn();
        next();
        enlarge();
        QCOMPARE(&view(), first);
        QCOMPARE(place().size(), QSize(40, 30));
        checkIsCentred();
        zoomOut();
        QCOMPARE(place().size(), QSize(20, 15));
        zoomOut();
        QCOMPARE(place().size(), QSize(20, 15));
    }
    void a_zoom_keeps_the_pixels_of_a_game_sharp() {
        open({160, 144});
        zoomIn();
        const QImage shown = imageOf(view());
        const QPoint middle = place().center();
        QCOMPARE(shown.pixelColor(middle), shown.pixelColor(place().topLeft()));
    }
    void a_png_shows_the_stock_picture() {
        picture(u"a.png"_s, pngBytes());
        openGallery();
        enlarge();
        QCOMPARE(place().size(), QSize(460, 265));
        QCOMPARE(view().IMG_BIG.source().bytes(), stockBytes());
    }
    void a_picture_that_is_shown_beside_a_bad_file_is_enlarged() {
        picture(u"a.bmp"_s, bmpBytes({40, 30}));
        picture(u"b.bmp"_s, "bad");
        openGallery();
        next();
        enlarge();
        QCOMPARE(place().size(), QSize(40, 30));
    }

    void plus_and_minus_zoom() {
        open({160, 144});
        pressKey(Qt::Key_Plus);
        QCOMPARE(place().size(), QSize(320, 288));
        pressKey(Qt::Key_Minus);
        QCOMPARE(place().size(), QSize(160, 144));
        pressKey(Qt::Key_Plus, Qt::KeypadModifier);
        QCOMPARE(place().size(), QSize(320, 288));
        pressKey(Qt::Key_Minus, Qt::KeypadModifier);
        QCOMPARE(place().size(), QSize(160, 144));
    }
    void the_wheel_zooms_step_by_step() {
        open({160, 144});
        turnWheel(60);
        QCOMPARE(place().size(), QSize(160, 144));
        turnWheel(60);
        QCOMPARE(place().size(), QSize(320, 288));
        turnWheel(-240);
        QCOMPARE(place().size(), QSize(80, 72));
    }
};

TORVANE_TEST(AmpliCapturaTest)
#include "AmpliCapturaTest.moc"
