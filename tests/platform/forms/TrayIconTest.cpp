// SPDX-License-Identifier: MIT
// The icon in the tray: its picture comes from a file that may be missing or something else.
#include "platform/forms/TrayIcon.h"
#include "platform/forms/PopupMenu.h"
#include "support/Failing.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QBuffer>
#include <QMenu>

using namespace torvane;
using namespace Qt::StringLiterals;

class TrayIconTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<TrayIcon> icon;

    static QByteArray picture(const QColor& colour, const char* format) {
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(colour);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, format);
        return bytes;
    }
    QColor shown() const { return icon->picture().toImage().pixelColor(8, 8); }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        icon = std::make_unique<TrayIcon>(*form, "TrayIcon1", "Torvane");
    }
    void cleanup() {
        icon.reset();
        form.reset();
    }

    void a_picture_is_taken_whatever_its_kind_and_name_data() {
        QTest::addColumn<QByteArray>("format");
        for (const char* format : {"PNG", "BMP", "JPEG"}) QTest::newRow(format) << QByteArray(format);
    }
    void a_picture_is_taken_whatever_its_kind_and_name() {
        QFETCH(QByteArray, format);
        icon->setPicture(world->folder.write(u"data/tray/0.dat"_s, picture(Qt::white, format.constData())));
        QCOMPARE(icon->picture().size(), QSize(16, 16));
        QCOMPARE(shown(), QColor(Qt::white));
    }
    void every_picture_of_the_installed_tree_is_taken() {
        for (int number = 0; number <= 6; ++number) {
            icon->setPicture(
                u"%1\\data\\tray\\%2.dat"_s.arg(QStringLiteral(TORVANE_ART_TREE_DIR)).arg(number));
            QVERIFY2(!icon->picture().isNull(), qPrintable(QString::number(number)));
        }
    }
    void a_missing_picture_fails_and_the_old_one_stays() {
        icon->setPicture(world->folder.write(u"0.dat"_s, picture(Qt::blue, "PNG")));
        QCOMPARE(failureOf([&] { icon->setPicture(world->folder.path(u"1.dat"_s)); }), 53);
        QCOMPARE(shown(), QColor(Qt::blue));
    }
    void what_is_no_picture_fails_and_the_old_one_stays_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no picture");
        QTest::newRow("cut off in its head") << picture(Qt::red, "PNG").first(20);
        QTest::newRow("garbage after the signature")
            << QByteArray("\x89PNG\r\n\x1A\n") + QByteArray(300, '\xA5');
    }
    void what_is_no_picture_fails_and_the_old_one_stays() {
        QFETCH(QByteArray, bytes);
        icon->setPicture(world->folder.write(u"0.dat"_s, picture(Qt::blue, "PNG")));
        const QString file = world->folder.write(u"1.dat"_s, bytes);
        QCOMPARE(failureOf([&] { icon->setPicture(file); }), 481);
        QCOMPARE(shown(), QColor(Qt::blue));
    }
    void a_folder_in_place_of_the_picture_fails() {
        QVERIFY(failureOf([&] { icon->setPicture(world->folder.path()); }).has_value());
        QVERIFY(icon->picture().isNull());
    }
    void showing_and_hiding_is_remembered_and_does_no_harm_without_a_tray() {
        QVERIFY(!icon->isShown());
        icon->setShown(true);
        QCoreApplication::processEvents();
        icon->setPicture(world->folder.write(u"0.dat"_s, picture(Qt::blue, "PNG")));
        QCoreApplication::processEvents();
        QVERIFY(icon->isShown());
        icon->setShown(false);
        QCoreApplication::processEvents();
        QVERIFY(!icon->isShown());
        QCOMPARE(icon->toolTip(), u"Torvane"_s);
    }
    // A start is over by then: the menu costs it nothing.
    void the_menu_is_made_with_the_icon_and_not_before() {
        MenuEntry root(*form, 0, "root", "x");
        MenuEntry entry(*form, 1, "entry", "Entry");
        PopupMenu menu(root);
        const auto isMade = [] {
            const QWidgetList all = QApplication::allWidgets();
            return std::any_of(all.begin(), all.end(),
                               [](const QWidget* widget) { return qobject_cast<const QMenu*>(widget); });
        };
        icon->setMenu(menu);
        icon->setPicture(world->folder.write(u"0.dat"_s, picture(Qt::blue, "PNG")));
        QTest::qWait(150); // longer than the icon waits before it is set up
        QVERIFY(!isMade());
        icon->setShown(true);
        QCoreApplication::processEvents();
        QVERIFY(!isMade());
        QTRY_VERIFY(isMade());
        QVERIFY(!menu.isOpen());
        icon.reset();
    }
    void the_icon_may_go_before_the_event_loop_comes_to_rest() {
        icon->setPicture(world->folder.write(u"0.dat"_s, picture(Qt::blue, "PNG")));
        icon->setShown(true);
        icon.reset();
        QTest::qWait(150); // longer than the icon waits before it is set up
        QVERIFY(form->findChild<TrayIcon*>() == nullptr);
    }
};

TORVANE_TEST(TrayIconTest)
#include "TrayIconTest.moc"
