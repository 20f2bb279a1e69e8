// SPDX-License-Identifier: MIT
// The about window: its words, the credits, the page for bugs, and the ways to it and back.
#include "support/CutCaptions.h"
#include "support/LanguageRows.h"
#include "support/OpenedMenu.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class AboutfrmTest : public OpenedMenu {
    Q_OBJECT

    Aboutfrm& window() const { return *loaded<Aboutfrm>(); }
    void putCredits() const {
        for (const char* name : {"/data/credits.dat", "/data/credits@2x.dat"}) {
            QVERIFY(QFile::copy(QStringLiteral(TORVANE_ART_TREE_DIR) + QLatin1String(name),
                                opened->world.appPath() + QLatin1String(name)));
        }
    }
    void openAbout() {
        if (opened->program == nullptr) openWithGames(1);
        click(main().chameleonButton5);
        QVERIFY(isShown<Aboutfrm>());
        QVERIFY(QTest::qWaitForWindowActive(&window()));
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void the_button_of_the_main_window_opens_it_instead_of_that_one() {
        openAbout();
        QVERIFY(!main().isVisible());
        QVERIFY(window().design().inTaskBar);
    }
    void its_words_are_those_of_the_language() {
        openAbout();
        QCOMPARE(window().Label5.Caption(), u"About Torvane v1.1"_s);
        QCOMPARE(window().TVLabel1.Caption(), u"Have you found a bug? »"_s);
        QCOMPARE(window().ChameleonButton17.Caption(), u"Report the bug"_s);
        QCOMPARE(window().Label2.Caption(), u"Torvane"_s);
        QCOMPARE(window().Label23.Caption(), u"1.1"_s);
        QCOMPARE(window().Label24.Caption(), u"by Torvane ·· 1.1 r2"_s);
    }
    void only_its_title_follows_the_version() {
        openWithGames(1);
        opened->program->globals.setVersion(u"9.9"_s);
        openAbout();
        QCOMPARE(window().Label5.Caption(), u"About Torvane v9.9"_s);
        QCOMPARE(window().Label23.Caption(), u"1.1"_s);
        QCOMPARE(window().Label24.Caption(), u"by Torvane ·· 1.1 r2"_s);
    }
    void a_file_without_its_keys_leaves_the_version_the_sign_and_an_empty_button() {
        opened->world.folder.write(u"data/lang/lang_eng.tvl"_s, "[FileInfo]\r\nlangname=Bare\r\n");
        openAbout();
        QCOMPARE(window().Label5.Caption(), u"1.1"_s);
        QCOMPARE(window().TVLabel1.Caption(), u" »"_s);
        QCOMPARE(window().ChameleonButton17.Caption(), QString());
        click(window().ChameleonButton17);
        QCOMPARE(opened->world.browser.urls.size(), 1);
    }
    void every_caption_fits_data() { languageRows(); }
    void every_caption_fits() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        openAbout();
        CutCaptions cut;
        QCOMPARE(cut.check(window()), 6);
        QCOMPARE(cut.found.join(u'\n'), QString());
    }

    void the_credits_play() {
        putCredits();
        openAbout();
        QCOMPARE(window().ShockwaveFlash1.Movie(), opened->world.appPath() + u"\\data\\credits.dat"_s);
        QTRY_VERIFY(window().ShockwaveFlash1.isPlaying());
        const QImage first = imageOf(window().ShockwaveFlash1);
        QTRY_VERIFY(imageOf(window().ShockwaveFlash1) != first);
    }
    void credits_that_are_no_movie_leave_the_player_empty_without_a_message_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("something else") << QByteArray(5000, 'x');
    }
    void credits_that_are_no_movie_leave_the_player_empty_without_a_message() {
        QFETCH(QByteArray, bytes);
        if (!bytes.isNull()) opened->world.folder.write(u"data/credits.dat"_s, bytes);
        openWithGames(1);
        click(main().chameleonButton5);
        QSignalSpy ready(&window().ShockwaveFlash1, &MoviePlayer::readyStateChanged);
        QTRY_COMPARE(ready.size(), 1);
        QVERIFY(!window().ShockwaveFlash1.isPlaying());
        QCOMPARE(messages().boxes.size(), 0);
        QVERIFY(window().isVisible());
    }

    void the_page_for_bugs_opens_any_number_of_times_and_the_window_stays() {
        openAbout();
        for (int i = 0; i < 3; ++i) click(window().ChameleonButton17);
        const QStringList& urls = opened->world.browser.urls;
        QCOMPARE(urls.size(), 3);
        for (const QString& url : urls) {
            QVERIFY2(url.endsWith(u"/data/site/torvane-section-bugcenter.html"_s), qPrintable(url));
        }
        QVERIFY(window().isVisible() && !main().isVisible());
    }
    void the_page_is_one_of_the_server_that_the_deployment_names() {
        opened->world.folder.write(u"data/hosts.ini"_s, "[Hosts]\r\nupdate=https://update.example\r\n");
        openAbout();
        click(window().ChameleonButton17);
        QCOMPARE(opened->world.browser.urls,
                 QStringList{u"https://update.example/torvane.php?section=bugcenter"_s});
    }
    void without_a_browser_nothing_happens() {
        opened->world.browser.found = false;
        openAbout();
        click(window().ChameleonButton17);
        QVERIFY(window().isVisible());
        QCOMPARE(messages().boxes.size(), 0);
    }

    void closed_by_its_button_by_escape_or_by_the_desktop_it_brings_the_main_window_back_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("button") << 0;
        QTest::newRow("escape") << 1;
        QTest::newRow("desktop") << 2;
    }
    void closed_by_its_button_by_escape_or_by_the_desktop_it_brings_the_main_window_back() {
        QFETCH(int, way);
        openAbout();
        if (way == 0) click(window().chameleonButton1);
        if (way == 1) QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
        if (way == 2) window().close();
        QVERIFY(loaded<Aboutfrm>() == nullptr);
        QVERIFY(main().isVisible());
        collectGone();
        openAbout();
        QVERIFY(!main().isVisible());
    }
    void from_the_menu_it_replaces_what_is_on_screen_and_brings_that_back() {
        openWithGames(2);
        goCompact();
        choose(menuing().about);
        QVERIFY(isShown<Aboutfrm>() && !isShown<Torvette>() && !main().isVisible());
        QVERIFY(!offers(menuing().about));
        click(window().chameleonButton1);
        QVERIFY(isShown<Torvette>() && !main().isVisible());
        loaded<Torvette>()->Unload();
        choose(menuing().about);
        QVERIFY(isShown<Aboutfrm>() && !main().isVisible());
        click(window().chameleonButton1);
        QVERIFY(main().isVisible());
    }
};

TORVANE_TEST(AboutfrmTest)
#include "AboutfrmTest.moc"
