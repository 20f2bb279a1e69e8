// SPDX-License-Identifier: MIT
// Which windowing system a start asks Qt for, and which one it has.
#include "platform/forms/WindowingSystem.h"
#include "support/ClaimedPlatform.h"
#include "support/TestMain.h"

#include <QTest>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
constexpr std::array variables{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};

void set(const char* variable, const QByteArray& value) {
    if (value.isNull()) {
        qunsetenv(variable);
    } else {
        qputenv(variable, value);
    }
}
} // namespace

class WindowingSystemTest : public QObject {
    Q_OBJECT

    QByteArrayList before;

private slots:
    void initTestCase() {
        for (const char* variable : variables) {
            before.append(qEnvironmentVariableIsSet(variable) ? qgetenv(variable) : QByteArray());
        }
    }
    void cleanup() {
        for (size_t i = 0; i < variables.size(); ++i) set(variables.at(i), before[qsizetype(i)]);
    }

    void x11_comes_first_and_wayland_is_the_way_out_data() {
        QTest::addColumn<QByteArray>("chosen");
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<QByteArray>("wayland");
        QTest::addColumn<QByteArray>("expected");
        const QByteArray none;
        QTest::newRow("X11 alone") << none << ":0"_ba << none << "xcb"_ba;
        QTest::newRow("X11 on Wayland") << none << ":0"_ba
                                        << "wayland-0"_ba
                                        << "xcb;wayland"_ba;
        QTest::newRow("Wayland alone") << none << none << "wayland-0"_ba << none;
        QTest::newRow("DISPLAY is empty") << none << ""_ba
                                          << "wayland-0"_ba << none;
        QTest::newRow("WAYLAND_DISPLAY is empty") << none << ":0"_ba
                                                  << ""_ba
                                                  << "xcb"_ba;
        QTest::newRow("neither") << none << none << none << none;
        QTest::newRow("the user's choice") << "offscreen"_ba
                                           << ":0"_ba
                                           << "wayland-0"_ba
                                           << "offscreen"_ba;
    }
    void x11_comes_first_and_wayland_is_the_way_out() {
        QFETCH(QByteArray, chosen);
        QFETCH(QByteArray, display);
        QFETCH(QByteArray, wayland);
        QFETCH(QByteArray, expected);
        set("QT_QPA_PLATFORM", chosen);
        set("DISPLAY", display);
        set("WAYLAND_DISPLAY", wayland);
        WindowingSystem::preferX11();
        QCOMPARE(qgetenv("QT_QPA_PLATFORM"), expected);
    }
    void it_is_wayland_by_whatever_plugin_data() {
        QTest::addColumn<QString>("platform");
        QTest::addColumn<bool>("expected");
        QTest::newRow("wayland") << u"wayland"_s << true;
        QTest::newRow("wayland-egl") << u"wayland-egl"_s << true;
        QTest::newRow("xcb") << u"xcb"_s << false;
        QTest::newRow("offscreen") << u"offscreen"_s << false;
    }
    void it_is_wayland_by_whatever_plugin() {
        QFETCH(QString, platform);
        QFETCH(bool, expected);
        const ClaimedPlatform claimed(platform);
        QCOMPARE(WindowingSystem::isWayland(), expected);
    }
};

TORVANE_TEST(WindowingSystemTest)
#include "WindowingSystemTest.moc"
