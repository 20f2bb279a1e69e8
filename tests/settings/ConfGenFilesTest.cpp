// SPDX-License-Identifier: MIT
// The general options on bad days of the disk: what cannot be stored or loaded is reported, nothing is lost,
// and the controls show what is stored.
#include "support/Failing.h"
#include "support/OpenedSettings.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class ConfGenFilesTest : public OpenedSettings {
    Q_OBJECT

    void expectReported(int boxes, const QString& part) const {
        QCOMPARE(messages().boxes.size(), boxes);
        QVERIFY2(messages().last().contains(part), qPrintable(messages().last()));
        QCOMPARE(messages().boxes.last().flags, 16);
        QCOMPARE(world().ends, 0);
        QVERIFY(window().isVisible());
    }
    void closeStore() const {
        world().folder.setMode(u"config/Torvane"_s, 0555);
        world().folder.setMode(u"config/Torvane/Torvane.conf"_s, 0444);
    }
    void openStore() const { world().folder.setMode(u"config/Torvane"_s, 0755); }
    QStringList storeFolder() const { return world().folder.entries(u"config/Torvane"_s); }

private slots:
    void init() { start(); }
    void cleanup() {
        openStore();
        end();
    }

    void a_store_that_cannot_be_written_is_reported_once_at_the_opening() {
        openPanel();
        const QByteArray before = settingsBytes();
        closeStore();
        const OrdinaryUser user;
        clickOptions();
        expectReported(1, u"Torvane.conf"_s);
        QCOMPARE(settingsBytes(), before);
        QCOMPARE(chosenColour(), 0);
        QCOMPARE(window().Check1.Value(), 1);
    }
    void a_store_that_cannot_be_written_keeps_no_stored_option_from_its_effect() {
        openPanel();
        world().setSetting("Icon", u"4"_s);
        world().setSetting("Tray", u"0"_s);
        closeStore();
        const OrdinaryUser user;
        clickOptions();
        expectReported(1, u"Torvane.conf"_s);
        QCOMPARE(chosenColour(), 4);
        QCOMPARE(trayPicture(), 4);
        QVERIFY(!hasTrayIcon());
    }
    void an_option_that_cannot_be_stored_is_reported_and_goes_back_data() {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"Option1(3)", "Option2(0)", "Check1", "Check2", "Check3", "Check4", "Check6"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }
    void an_option_that_cannot_be_stored_is_reported_and_goes_back() {
        QFETCH(QString, name);
        openOptions();
        const QByteArray before = settingsBytes();
        const bool wasChecked = window().findChild<ToggleControl*>(name)->isChecked();
        closeStore();
        {
            const OrdinaryUser user;
            mark(*window().findChild<ToggleControl*>(name));
        }
        expectReported(1, u"Torvane.conf"_s);
        QCOMPARE(window().findChild<ToggleControl*>(name)->isChecked(), wasChecked);
        QCOMPARE(chosenColour(), 0);
        QCOMPARE(chosenCorner(), 1);
        QCOMPARE(trayPicture(), 0);
        QVERIFY(hasTrayIcon());
        QCOMPARE(settingsBytes(), before);
        // Once it can be written the same control works.
        openStore();
        world().folder.setMode(u"config/Torvane/Torvane.conf"_s, 0644);
        mark(*window().findChild<ToggleControl*>(name));
        QCOMPARE(window().findChild<ToggleControl*>(name)->isChecked(), !wasChecked);
        QVERIFY(settingsBytes() != before);
        QCOMPARE(messages().boxes.size(), 1);
    }
    void a_full_disk_is_reported_and_the_store_keeps_all_its_settings_data() {
        QTest::addColumn<int>("room");
        for (const int room : {0, 1, 30}) QTest::addRow("%d bytes", room) << room;
    }
    void a_full_disk_is_reported_and_the_store_keeps_all_its_settings() {
        QFETCH(int, room);
        openOptions();
        const QByteArray before = settingsBytes();
        {
            const FullDisk full(static_cast<rlim_t>(room));
            mark(window().Check3);
            mark(colour(5));
        }
        expectReported(2, u"disk is full"_s);
        QCOMPARE(settingsBytes(), before);
        QCOMPARE(storeFolder(), QStringList{u"Torvane.conf"_s});
        QCOMPARE(chosenColour(), 0);
        QCOMPARE(trayPicture(), 0);
    }
    void a_full_disk_at_the_opening_stores_none_of_the_options() {
        openPanel();
        const QByteArray before = settingsBytes();
        {
            const FullDisk full(10);
            click(panel().chameleonButton3);
        }
        expectReported(1, u"disk is full"_s);
        QCOMPARE(settingsBytes(), before);
        QCOMPARE(storeFolder(), QStringList{u"Torvane.conf"_s});
    }
    void a_folder_that_cannot_be_stored_is_reported_and_the_old_one_stays() {
        world().setSetting("Capturas", u"/old/"_s);
        openOptions();
        dialogs().answer = world().appPath() + u"/Este Directorio"_s;
        {
            const FullDisk full(5);
            click(window().ChameleonButton17);
        }
        expectReported(1, u"disk is full"_s);
        QCOMPARE(world().setting("Capturas"), u"/old/"_s);
    }

    // The pictures of the tray
    void a_missing_picture_is_reported_and_the_colour_is_stored_all_the_same() {
        openOptions();
        QVERIFY(QFile::remove(world().folder.path(u"data/tray/3.dat"_s)));
        mark(colour(3));
        expectReported(1, u"3.dat"_s);
        QCOMPARE(world().setting("Icon"), u"3"_s);
        QCOMPARE(chosenColour(), 3);
        QCOMPARE(trayPicture(), 0);
        mark(colour(4));
        QCOMPARE(trayPicture(), 4);
    }
    void a_missing_picture_keeps_nothing_else_from_loading() {
        openPanel();
        world().setSetting("Tray", u"0"_s);
        QVERIFY(QFile::remove(world().folder.path(u"data/tray/0.dat"_s)));
        clickOptions();
        expectReported(1, u"0.dat"_s);
        QVERIFY(!hasTrayIcon());
        QCOMPARE(window().Check1.Value(), 0);
        QCOMPARE(world().setting("Icon"), u"0"_s);
    }
    void a_store_that_cannot_be_read_is_reported_and_never_overwritten() {
        openOptions();
        const QByteArray before = settingsBytes();
        world().folder.setMode(u"config/Torvane"_s, 0777);
        world().folder.setMode(u"config/Torvane/Torvane.conf"_s, 0222);
        {
            const OrdinaryUser user;
            mark(colour(3));
        }
        world().folder.setMode(u"config/Torvane/Torvane.conf"_s, 0644);
        expectReported(1, u"Torvane.conf"_s);
        QCOMPARE(settingsBytes(), before);
    }
};

TORVANE_TEST(ConfGenFilesTest)
#include "ConfGenFilesTest.moc"
