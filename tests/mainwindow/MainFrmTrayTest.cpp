// SPDX-License-Identifier: MIT
// What the settings make of the main window's icon in the tray.
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

class MainFrmTrayTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    FakeMessages& messages() const { return opened->world.messages; }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void the_tray_icon_is_shown_unless_the_user_does_not_want_it_data() {
        QTest::addColumn<QString>("tray");
        QTest::addColumn<bool>("shown");
        QTest::newRow("absent") << QString() << true;
        QTest::newRow("True") << QStringLiteral("True") << true;
        QTest::newRow("1") << QStringLiteral("1") << true;
        QTest::newRow("False") << QStringLiteral("False") << false;
        QTest::newRow("0") << QStringLiteral("0") << false;
        QTest::newRow("no number") << QStringLiteral("yes") << false;
    }
    void the_tray_icon_is_shown_unless_the_user_does_not_want_it() {
        QFETCH(QString, tray);
        QFETCH(bool, shown);
        if (!tray.isEmpty()) opened->world.setSetting("Tray", tray);
        QCOMPARE(opened->open().TrayIcon1.isShown(), shown);
        QCOMPARE(opened->world.ends, 0);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void the_icon_setting_selects_the_picture_of_the_tray_icon_data() {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("absent") << QString() << QColor(Qt::red);
        QTest::newRow("0") << QStringLiteral("0") << QColor(Qt::red);
        QTest::newRow("3") << QStringLiteral("3") << QColor(Qt::blue);
    }
    void the_icon_setting_selects_the_picture_of_the_tray_icon() {
        QFETCH(QString, setting);
        QFETCH(QColor, colour);
        const QList<QPair<const char*, QColor>> pictures{{"0", Qt::red}, {"1", Qt::green}, {"3", Qt::blue}};
        for (const auto& [name, itsColour] : pictures) {
            QImage picture(16, 16, QImage::Format_RGB32);
            picture.fill(itsColour);
            const QString file = QStringLiteral("data/tray/%1.dat").arg(QLatin1String(name));
            QVERIFY(picture.save(opened->world.folder.path(file), "PNG"));
        }
        if (!setting.isEmpty()) opened->world.setSetting("Icon", setting);
        const QPixmap shown = opened->open().TrayIcon1.picture();
        QCOMPARE(shown.toImage().pixelColor(5, 5), colour);
    }
    void without_the_tray_the_picture_is_taken_all_the_same_and_no_icon_is_shown() {
        QImage picture(16, 16, QImage::Format_RGB32);
        picture.fill(Qt::green);
        QVERIFY(picture.save(opened->world.folder.path(QStringLiteral("data/tray/0.dat")), "PNG"));
        opened->world.setSetting("Tray", QStringLiteral("False"));
        const TrayIcon& icon = opened->open().TrayIcon1;
        QCOMPARE(icon.picture().toImage().pixelColor(5, 5), QColor(Qt::green));
        QVERIFY(!icon.isShown());
    }
    void a_broken_icon_does_no_harm() {
        opened->world.folder.write(QStringLiteral("data/tray/0.dat"), "GIF89a, or so it says");
        QVERIFY(opened->open().TrayIcon1.picture().isNull());
        QVERIFY(opened->main().isVisible());
        QVERIFY(opened->main().TrayIcon1.isShown());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_missing_icon_does_no_harm_data() {
        QTest::addColumn<QString>("icon");
        QTest::newRow("no such number") << QStringLiteral("99");
        QTest::newRow("a path out of the folder") << QStringLiteral("..\\..\\roms\\a");
        QTest::newRow("nothing") << QStringLiteral(" ");
        QTest::newRow("no number") << QStringLiteral("red");
        QTest::newRow("below the first") << QStringLiteral("-1");
        QTest::newRow("long") << QString(3000, QLatin1Char('9'));
    }
    void a_missing_icon_does_no_harm() {
        QFETCH(QString, icon);
        opened->world.setSetting("Icon", icon);
        QVERIFY(opened->open().TrayIcon1.picture().isNull());
        QVERIFY(opened->main().isVisible());
        QCOMPARE(messages().boxes.size(), 0);
    }
};

TORVANE_TEST(MainFrmTrayTest)
#include "MainFrmTrayTest.moc"
