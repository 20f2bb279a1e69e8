// SPDX-License-Identifier: MIT
// On a display of its own, with a window manager: a window gets the focus for a start of the user, and the
// desktop hears that the start is over.
#include "platform/forms/StartupNotice.h"
#include "support/CommandOutput.h"
#include "support/OwnDisplay.h"
#include "support/TestMain.h"

#include <poll.h>
#include <xcb/xcb.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class StartupNoticeTest : public QObject {
    Q_OBJECT

    // Collects the startup messages that programs broadcast, and what they ask of the window manager.
    class Desktop {
    public:
        Desktop() : m_connection(xcb_connect(nullptr, nullptr)) {
            const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
            const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
            xcb_request_check(m_connection, xcb_change_window_attributes_checked(m_connection, root,
                                                                                 XCB_CW_EVENT_MASK, &mask));
        }
        ~Desktop() { xcb_disconnect(m_connection); }
        Desktop(const Desktop&) = delete;
        Desktop& operator=(const Desktop&) = delete;

        // The texts of all messages that have come whole so far, each with its zero byte.
        const QByteArray& heard() {
            while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
                const auto& message = *reinterpret_cast<xcb_client_message_event_t*>(event);
                const bool isMessage = (event->response_type & 0x7F) == XCB_CLIENT_MESSAGE;
                if (isMessage && message.format == 8) takePiece(message);
                if (isMessage && message.format == 32) m_requests.append(message);
                free(event);
            }
            return m_heard;
        }
        // The same, as soon as anything has come, without serving events of this process.
        const QByteArray& heardWithoutEvents() {
            pollfd look{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            while (heard().isEmpty() && poll(&look, 1, 5000) > 0) {
            }
            return m_heard;
        }
        // The requests of kind 2, those of a user's own action, that a window be active: the time of each.
        QList<uint32_t> activations(WId window) {
            heard();
            QList<uint32_t> times;
            for (const xcb_client_message_event_t& request : m_requests) {
                if (request.window == window && request.type == m_activation && request.data.data32[0] == 2) {
                    times.append(request.data.data32[1]);
                }
            }
            return times;
        }
        // How often the window manager was asked for another virtual desktop.
        int changes() {
            heard();
            int count = 0;
            for (const xcb_client_message_event_t& request : m_requests) count += request.type == m_current;
            return count;
        }

    private:
        // The first piece of a message and the others have kinds of their own.
        void takePiece(const xcb_client_message_event_t& piece) {
            if (piece.type != m_first && piece.type != m_next) return;
            if (piece.type == m_first) m_begun.clear();
            m_begun.append(reinterpret_cast<const char*>(piece.data.data8), sizeof piece.data);
            if (const auto end = m_begun.indexOf('\0'); end >= 0) m_heard += m_begun.first(end + 1);
        }
        static xcb_atom_t atomOn(xcb_connection_t* connection, const QByteArray& name) {
            const auto asked = xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name);
            const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
                xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
            return reply->atom;
        }

        xcb_connection_t* m_connection;
        xcb_atom_t m_activation = atomOn(m_connection, "_NET_ACTIVE_WINDOW");
        xcb_atom_t m_current = atomOn(m_connection, "_NET_CURRENT_DESKTOP");
        xcb_atom_t m_first = atomOn(m_connection, "_NET_STARTUP_INFO_BEGIN");
        xcb_atom_t m_next = atomOn(m_connection, "_NET_STARTUP_INFO");
        QByteArray m_begun;
        QByteArray m_heard;
        QList<xcb_client_message_event_t> m_requests;
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
    void it_hears_so_at_once_whatever_the_program_does_next() {
        Desktop desktop;
        QWidget window;
        show(window);
        QTest::qWait(0);
        StartupNotice{"launcher", {}}.answerWith(window);
        QVERIFY(!desktop.heardWithoutEvents().isEmpty());
    }
    void the_window_manager_gets_the_time_of_the_users_action_data() {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<uint32_t>("time");
        QTest::newRow("no id") << QByteArray() << 0U;
        QTest::newRow("no time") << QByteArray("launcher") << 0U;
        QTest::newRow("a time") << QByteArray("launcher_TIME123") << 123U;
        QTest::newRow("a name like a time") << QByteArray("a_TIME5-b_TIME4000000000") << 4'000'000'000U;
        QTest::newRow("no number") << QByteArray("launcher_TIMEnone") << 0U;
    }
    void the_window_manager_gets_the_time_of_the_users_action() {
        QFETCH(QByteArray, id);
        QFETCH(uint32_t, time);
        Desktop desktop;
        QWidget window;
        show(window);
        StartupNotice{id, {}}.answerWith(window);
        QTRY_COMPARE(desktop.activations(window.winId()), QList<uint32_t>{time});
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
    void a_window_on_another_virtual_desktop_is_shown_and_gets_the_focus() {
        QWidget window;
        show(window);
        QTRY_VERIFY(window.isActiveWindow());
        startBeside({"xdotool", "set_desktop", "1"});
        QTRY_VERIFY_WITH_TIMEOUT(!window.isActiveWindow(), 20000);
        Desktop desktop;
        const QByteArray id = QByteArray::number(window.winId());
        StartupNotice{}.answerWith(window);
        QTRY_VERIFY_WITH_TIMEOUT(window.isActiveWindow(), 20000);
        QCOMPARE(desktop.changes(), 1);
        QCOMPARE(outputOf({"xdotool", "get_desktop"}), outputOf({"xdotool", "get_desktop_for_window", id}));
    }
    void a_window_on_all_virtual_desktops_keeps_the_user_where_he_is() {
        QWidget window;
        show(window);
        QTRY_VERIFY(window.isActiveWindow());
        const QByteArray id = QByteArray::number(window.winId());
        outputOf({"xdotool", "set_desktop_for_window", id, "-1"});
        outputOf({"xdotool", "set_desktop", "1"});
        QTRY_COMPARE(outputOf({"xdotool", "get_desktop"}), QByteArray("1\n"));
        Desktop desktop;
        StartupNotice{"end", {}}.answerWith(window);
        QTRY_VERIFY(!desktop.heard().isEmpty());
        QCOMPARE(desktop.changes(), 0); // not every window manager ignores a desktop that it lacks
        QTRY_VERIFY(window.isActiveWindow());
        QCOMPARE(outputOf({"xdotool", "get_desktop"}), QByteArray("1\n"));
        outputOf({"xdotool", "set_desktop", "0"});
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
