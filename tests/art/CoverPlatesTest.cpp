// SPDX-License-Identifier: MIT
// Under each button that can be hidden is a quiet cover plate, which nobody mistakes for a button.
#include "ArtFiles.h"
#include "art/ArtResources.h"
#include "support/TestMain.h"

#include <QTest>

using namespace torvane;

class CoverPlatesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initArtResources(); }
    void a_hidden_button_leaves_a_quiet_cover_plate_data();
    void a_hidden_button_leaves_a_quiet_cover_plate();
    void each_hidden_button_has_a_plate_of_its_own();
};

void CoverPlatesTest::a_hidden_button_leaves_a_quiet_cover_plate_data() {
    QTest::addColumn<QString>("window");
    QTest::addColumn<QRect>("button");
    QTest::newRow("Zipper") << "MainFrm" << QRect(52, 94, 23, 23);
    QTest::newRow("ID3_Menu") << "MainFrm" << QRect(252, 94, 40, 23);
    QTest::newRow("Edit_Menu") << "MainFrm" << QRect(292, 94, 40, 23);
    QTest::newRow("chameleonButton3") << "MainFrm" << QRect(252, 462, 35, 36);
    QTest::newRow("chameleonButton5") << "MainFrm" << QRect(435, 462, 37, 36);
    QTest::newRow("chameleonButton15") << "MainFrm" << QRect(225, 452, 23, 23);
    QTest::newRow("yes") << "TorvMsg" << QRect(0, 41, 151, 27);
    QTest::newRow("apply") << "EditDB" << QRect(538, 426, 184, 26);
    QTest::newRow("publish") << "EditDB" << QRect(538, 456, 184, 26);
    QTest::newRow("use") << "EditDB" << QRect(538, 486, 184, 26);
    QTest::newRow("close") << "DB_Info" << QRect(278, 284, 100, 26);
    QTest::newRow("accept") << "Form2" << QRect(316, 234, 110, 26);
    QTest::newRow("cancel") << "Form2" << QRect(204, 234, 110, 26);
    QTest::newRow("search the web") << "SearchROM" << QRect(207, 137, 162, 26);
    QTest::newRow("previous") << "Compartir" << QRect(262, 187, 22, 21);
    QTest::newRow("next") << "Compartir" << QRect(472, 187, 22, 21);
    QTest::newRow("enlarge") << "Compartir" << QRect(346, 187, 22, 21);
    QTest::newRow("print") << "Compartir" << QRect(368, 187, 22, 21);
    QTest::newRow("delete") << "Compartir" << QRect(390, 187, 22, 21);
    QTest::newRow("delete a page") << "URL" << QRect(276, 252, 224, 26);
    QTest::newRow("add a page") << "URL" << QRect(276, 282, 224, 26);
    QTest::newRow("find pages") << "URL" << QRect(276, 312, 224, 26);
    QTest::newRow("no page") << "AddPersonalWeb" << QRect(218, 140, 106, 26);
    QTest::newRow("this page") << "AddPersonalWeb" << QRect(326, 140, 106, 26);
    QTest::newRow("choose a folder") << "ConfGen" << QRect(368, 86, 184, 26);
    QTest::newRow("show the folder") << "ConfGen" << QRect(368, 58, 184, 26);
    QTest::newRow("close the settings") << "ConfGen" << QRect(430, 273, 122, 25);
    QTest::newRow("load a language") << "SelLang" << QRect(232, 86, 140, 26);
    QTest::newRow("add a language") << "SelLang" << QRect(168, 170, 204, 26);
    QTest::newRow("delete a language") << "SelLang" << QRect(168, 200, 204, 26);
    QTest::newRow("more languages") << "SelLang" << QRect(168, 230, 204, 26);
    QTest::newRow("report") << "Aboutfrm" << QRect(292, 428, 146, 26);
    QTest::newRow("search the list") << "AdvSearch" << QRect(284, 244, 162, 26);
    for (const char* page : {"NewAssistant-One", "NewAssistant-Three"})
        QTest::addRow("FilePath of %s", page) << page << QRect(4, 272, 364, 19);
    for (const char* page :
         {"NewAssistant-One", "NewAssistant-Two", "NewAssistant-Three", "NewAssistant-Four"})
        QTest::addRow("Browse of %s", page) << page << QRect(372, 268, 106, 26);
}

void CoverPlatesTest::a_hidden_button_leaves_a_quiet_cover_plate() {
    QFETCH(QString, window);
    QFETCH(QRect, button);
    constexpr int slate = 57; // the brightness of the darkest button back
    for (int scale : {1, 2}) {
        const QImage picture = pixelsOf(scaled(":/art/" + window + ".jpg", scale));
        const auto brightness = [&](int x, int y, int width, int height) {
            return brightnessOf(picture, QRect(x * scale, y * scale, width * scale, height * scale));
        };
        const int middle = button.width() - 16;
        const qreal face = brightness(button.x() + 8, button.y() + 8, middle, button.height() - 16);
        QVERIFY2(face > 35, "a black hole");
        QVERIFY2(face < slate, "as bright as a button");
        QVERIFY(brightness(button.x() + 8, button.y() + 1, middle, 1) > face + 10); // light from above
        QVERIFY(brightness(button.x() + 8, button.bottom() - 1, middle, 1) < face - 5);
        QVERIFY(brightness(button.x() + 4, button.y() + 4, 3, 3) < face - 5); // the two screws
        QVERIFY(brightness(button.right() - 6, button.bottom() - 6, 3, 3) < face - 5);
    }
}

void CoverPlatesTest::each_hidden_button_has_a_plate_of_its_own() {
    const QImage window = pixelsOf(":/art/MainFrm.jpg");
    const auto column = [&](int x) { return brightnessOf(window, QRect(x, 99, 1, 13)); };
    for (int x = 252; x <= 331; ++x) {
        const bool isGap = x == 252 || x == 291 || x == 292 || x == 331;
        QCOMPARE(column(x) < 26, isGap);
    }
}

TORVANE_TEST(CoverPlatesTest)
#include "CoverPlatesTest.moc"
