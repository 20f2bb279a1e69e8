// SPDX-License-Identifier: MIT
// On a display of its own, with a window manager: a window gets the focus for a start of the user, and the
// desktop hears that the start is over.
#include "platform/forms/StartupNotice.h"
#include "support/OwnDisplay.h"
#include "support/TestMain.h"

#include <xcb/xcb.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class StartupNoticeTest : public QObject {
    Q_OBJECT

    // Collects the startup messages that programs broadcast.
    class Desktop {
    public:
        Desktop() : m_connection(xcb_connect(nullptr, nullptr)) {
            const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
            const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
            xcb_request_check(m_connection, xcb_change_window_attributes_checked(m_connection, root,
                                                                                 XCB_CW_EVENT_MASK, &mask));
        }
        ~Desktop() { xcb_disconnect(m_connection); }
        Desktop(const Desktop&) = delete;
        Desktop& operator=(const Desktop&) = delete;

        // All that has come so far.
        const QByteArray& heard() {
            while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
                const auto& message = *reinterpret_cast<xcb_client_message_event_t*>(event);
                if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE && message.format == 8) {
                    m_heard.append(reinterpret_cast<const char*>(message.data.data8), 20);
                }
                free(event);
            }
            return m_heard;
        }

    private:
        xcb_connection_t* m_connection;
        QByteArray m_heard;
    };

    static void show(QWidget& window) {
        window.resize(200, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

public:
    static void initMain() {
        if (!startOwnDisplay()) qFatal("no display: is Xvfb installed?");
    }

private slots:
    // Until the window manager is there.
    void initTestCase() {
        bool isManaged = false;
        for (int attempt = 0; attempt < 40 && !isManaged; ++attempt) {
            QWidget probe;
            probe.show();
            isManaged = QTest::qWaitForWindowActive(&probe, 500);
        }
        QVERIFY(isManaged);
    }

    void the_desktop_hears_that_the_start_is_over() {
        Desktop desktop;
        QWidget window;
        show(window);
        StartupNotice{"launcher/\"a\\b\"/1-2-host_TIME123", {}}.answerWith(window);
        const QByteArray expected("remove: ID=\"launcher/\\\"a\\\\b\\\"/1-2-host_TIME123\"\0");
        QTRY_VERIFY2(desktop.heard().contains(expected), desktop.heard().constData());
    }
    void without_an_id_nothing_is_broadcast() {
        Desktop desktop;
        QWidget window;
        show(window);
        StartupNotice{}.answerWith(window);
        StartupNotice{QByteArray(100'000, 'x'), "token"}.answerWith(window);
        StartupNotice{"end", {}}.answerWith(window);
        QTRY_VERIFY(desktop.heard().contains("ID=\"end\""));
        QVERIFY(desktop.heard().startsWith("remove: ID=\"end\""));
        QVERIFY(!qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
    }
    void a_window_in_the_background_gets_the_focus_data() {
        QTest::addColumn<QByteArray>("id");
        QTest::newRow("no id") << QByteArray();
        QTest::newRow("an id without a time") << QByteArray("launcher");
        QTest::newRow("an old time") << QByteArray("launcher_TIME1");
        QTest::newRow("no number") << QByteArray("launcher_TIMEnone");
    }
    void a_window_in_the_background_gets_the_focus() {
        QFETCH(QByteArray, id);
        QWidget window;
        show(window);
        QTRY_VERIFY(window.isActiveWindow());
        startBeside({"sh", "-c", "exec xev -event keyboard >/dev/null"});
        QTRY_VERIFY_WITH_TIMEOUT(!window.isActiveWindow(), 20000);
        StartupNotice{id, {}}.answerWith(window);
        QTRY_VERIFY_WITH_TIMEOUT(window.isActiveWindow(), 20000);
    }
};

TORVANE_TEST(StartupNoticeTest)
#include "StartupNoticeTest.moc"
