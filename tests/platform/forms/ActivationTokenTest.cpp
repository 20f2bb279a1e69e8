// SPDX-License-Identifier: MIT
// On Wayland, a window that is activated in the name of a start uses that start's token.
#include "platform/forms/StartupNotice.h"
#include "support/ClaimedPlatform.h"
#include "support/TestMain.h"

#include <QWidget>

using namespace torvane;
using namespace Qt::StringLiterals;

class ActivationTokenTest : public QObject {
    Q_OBJECT

    static constexpr const char* variable = "XDG_ACTIVATION_TOKEN"; // Qt looks for the token there

    // Two windows of which the second one is active.
    struct Windows {
        QWidget first;
        QWidget second;

        Windows() {
            first.show();
            second.show();
            second.activateWindow();
        }
    };

private slots:
    void init() { qunsetenv(variable); }
    void cleanup() { qunsetenv(variable); }

    void the_window_is_activated_with_the_token_data() {
        QTest::addColumn<QString>("platform");
        QTest::newRow("wayland") << u"wayland"_s;
        QTest::newRow("wayland-egl") << u"wayland-egl"_s;
    }
    void the_window_is_activated_with_the_token() {
        QFETCH(QString, platform);
        Windows windows;
        QTRY_VERIFY(windows.second.isActiveWindow());
        const ClaimedPlatform claimed(platform);
        StartupNotice{"id", "a token"}.answerWith(windows.first);
        QTRY_VERIFY(windows.first.isActiveWindow());
        QCOMPARE(qgetenv(variable), QByteArray("a token"));
    }
    void without_a_token_nothing_is_activated() {
        Windows windows;
        QTRY_VERIFY(windows.second.isActiveWindow());
        const ClaimedPlatform claimed(u"wayland"_s);
        StartupNotice{"id", {}}.answerWith(windows.first);
        QTest::qWait(50);
        QVERIFY(windows.second.isActiveWindow());
        QVERIFY(!qEnvironmentVariableIsSet(variable));
    }
    void a_platform_without_tokens_gets_none() {
        Windows windows;
        QTRY_VERIFY(windows.second.isActiveWindow());
        StartupNotice{"id", "a token"}.answerWith(windows.first);
        QTest::qWait(50);
        QVERIFY(windows.second.isActiveWindow());
        QVERIFY(!qEnvironmentVariableIsSet(variable));
    }
};

TORVANE_TEST(ActivationTokenTest)
#include "ActivationTokenTest.moc"
