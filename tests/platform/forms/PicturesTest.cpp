// SPDX-License-Identifier: MIT
// The pictures of the skin for screens of any density, and those that follow a window from one screen to
// another.
#include "platform/forms/Pictures.h"
#include "platform/forms/FileImage.h"
#include "platform/forms/MoviePlayer.h"
#include "support/FakeScreens.h"
#include "support/ListInPanel.h"
#include "support/PdfPage.h"
#include "support/PictureBytes.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class PicturesTest : public ListInPanel {
    Q_OBJECT

    static constexpr const char* name = "console-gameboy-32.png";

    // What the window shows after it has come to the dense screen.
    QImage onDenseScreen() const {
        bringToScreen(*form, 1);
        return imageOf(*form);
    }

public:
    static void initMain() { useScreens({1.0, 2.0}); }

private slots:
    void init() { start(180); }
    void cleanup() { end(); }

    void a_fitted_picture_has_the_dots_of_the_screen_data() {
        QTest::addColumn<qreal>("density");
        QTest::addColumn<int>("dots");
        QTest::newRow("1x") << 1.0 << 32;
        QTest::newRow("a little more") << 1.01 << 33;
        QTest::newRow("1.25x") << 1.25 << 40;
        QTest::newRow("1.5x") << 1.5 << 48;
        QTest::newRow("2x") << 2.0 << 64;
        QTest::newRow("3x") << 3.0 << 96;
    }
    void a_fitted_picture_has_the_dots_of_the_screen() {
        QFETCH(qreal, density);
        QFETCH(int, dots);
        const QPixmap picture = Pictures::loadFitted(QString::fromLatin1(name), density);
        QCOMPARE(picture.size(), QSize(dots, dots));
        QCOMPARE(picture.devicePixelRatio(), density);
    }
    void a_fitted_picture_is_drawn_from_the_denser_set() {
        const QPixmap dense = Pictures::load(QString::fromLatin1(name), 2.0);
        QPixmap wanted = dense.scaled(48, 48, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        wanted.setDevicePixelRatio(1.5);
        QCOMPARE(Pictures::loadFitted(QString::fromLatin1(name), 1.5).toImage(), wanted.toImage());
    }
    void what_is_not_there_is_null_at_any_density() {
        for (const qreal density : {1.0, 1.5, 2.0}) {
            QVERIFY(Pictures::loadFitted(u"nothing.png"_s, density).isNull());
            QVERIFY(Pictures::loadFitted({}, density).isNull());
        }
    }
    void a_picture_of_a_design_is_loaded_for_each_density() {
        const Pictures::Deferred picture(name);
        for (const qreal density : {1.0, 2.0, 1.5, 1.0}) {
            QCOMPARE(picture.picture(density).toImage(),
                     Pictures::loadFitted(QString::fromLatin1(name), density).toImage());
        }
    }
    void a_picture_that_is_set_is_the_same_at_any_density() {
        QPixmap set(3, 4);
        set.fill(Qt::red);
        const Pictures::Deferred picture(set);
        QCOMPARE(picture.picture(2.0).toImage(), set.toImage());
        QCOMPARE(picture.picture(1.0).toImage(), set.toImage());
    }

    void a_window_that_shows_the_picture_of_a_control_loads_it_for_each_screen() {
        const Image image(*form, "image", {0, 0, 32, 32}, name, false);
        form->setPicture(image.deferred());
        QCOMPARE(form->picture().size(), QSize(32, 32));
        onDenseScreen();
        QCOMPARE(form->picture().size(), QSize(64, 64));
    }
    void the_rows_of_a_list_follow_their_window() {
        fill(5);
        const QSize before = list->model().index(1, 0).data(Qt::DecorationRole).value<QPixmap>().size();
        QCOMPARE(before, QSize(32, 32));
        onDenseScreen();
        const QSize after = list->model().index(1, 0).data(Qt::DecorationRole).value<QPixmap>().size();
        QCOMPARE(after, QSize(64, 64));
    }
    void a_screenshot_follows_its_window() {
        const QImage picture = motley(80, 60);
        FileImage image(*form, "image", {0, 200, 40, 30}, FileImage::stretched);
        image.show();
        image.setSource(PictureFile(bmpOf(picture)));
        imageOf(*form);
        QImage shown = onDenseScreen().copy(0, 400, 80, 60);
        shown.setDevicePixelRatio(1.0);
        QCOMPARE(shown, picture.convertToFormat(shown.format()));
    }
    void a_movie_follows_its_window() {
        MoviePlayer player(*form, "movie", {0, 200, 40, 30});
        player.show();
        world->folder.write(u"movie@2x.gif"_s, gifHead() + gifFrame(1) + ';');
        player.setMovie(world->folder.write(u"movie.gif"_s, gifHead() + gifFrame(0) + ';'));
        player.Play();
        const auto seen = [&] { return imageOf(player).pixelColor(5, 5); };
        QTRY_COMPARE(seen(), QColor(Qt::red));
        bringToScreen(*form, 1);
        QTRY_COMPARE(seen(), QColor(Qt::blue));
        bringToScreen(*form, 0);
        QTRY_COMPARE(seen(), QColor(Qt::red));
    }
};

TORVANE_TEST(PicturesTest)
#include "PicturesTest.moc"
