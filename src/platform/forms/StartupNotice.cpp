// SPDX-License-Identifier: MIT
// Startup notification on X11 (EWMH, the startup notification protocol), activation tokens on Wayland. Qt
// answers the notice of its own process alone, and asks for the focus with the time of the last event that it
// got, which is too old.
#include "StartupNotice.h"

#include <QGuiApplication>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

namespace torvane {

namespace {
constexpr qsizetype longestId = 1024;
constexpr uint32_t sourceIsUser = 2;
constexpr uint32_t onAllDesktops = 0xFFFFFFFF;

xcb_atom_t atom(xcb_connection_t* connection, QByteArrayView name) {
    const auto asked = xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// A number that the window manager keeps in a property of a window; nothing if there is none.
std::optional<uint32_t> numberIn(xcb_connection_t* connection, xcb_window_t window, QByteArrayView name) {
    const auto asked =
        xcb_get_property(connection, 0, window, atom(connection, name), XCB_ATOM_CARDINAL, 0, 1);
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(connection, asked, nullptr), &std::free);
    uint32_t number = 0;
    if (!reply || xcb_get_property_value_length(reply.get()) != sizeof number) return std::nullopt;
    std::memcpy(&number, xcb_get_property_value(reply.get()), sizeof number);
    return number;
}

// The server's time of the click or key that began the start: ids end with it.
xcb_timestamp_t timeOf(const QByteArray& id) {
    constexpr QByteArrayView mark = "_TIME";
    const qsizetype place = id.lastIndexOf(mark);
    return place < 0 ? xcb_timestamp_t{XCB_CURRENT_TIME} : id.sliced(place + mark.size()).toUInt();
}

struct RootWindow {
    xcb_connection_t* connection;
    xcb_window_t window;

    xcb_window_t root() const { return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root; }
    void send(const xcb_client_message_event_t& event, uint32_t mask) const {
        xcb_send_event(connection, 0, root(), mask, reinterpret_cast<const char*>(&event));
    }
    void request(const xcb_client_message_event_t& event) const {
        send(event, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
    xcb_client_message_event_t message(uint8_t format, QByteArrayView type) const {
        xcb_client_message_event_t made{};
        made.response_type = XCB_CLIENT_MESSAGE;
        made.format = format;
        made.window = window;
        made.type = atom(connection, type);
        return made;
    }
    // Some window managers focus no window on another virtual desktop than the user's. Going there keeps the
    // program's windows together.
    void goToItsDesktop(xcb_timestamp_t time) const {
        const auto its = numberIn(connection, window, "_NET_WM_DESKTOP");
        if (!its || *its == onAllDesktops || its == numberIn(connection, root(), "_NET_CURRENT_DESKTOP"))
            return;
        xcb_client_message_event_t wish = message(32, "_NET_CURRENT_DESKTOP");
        wish.window = root();
        wish.data.data32[0] = *its;
        wish.data.data32[1] = time;
        request(wish);
    }
    void activate(xcb_timestamp_t time) const {
        xcb_client_message_event_t wish = message(32, "_NET_ACTIVE_WINDOW");
        wish.data.data32[0] = sourceIsUser;
        wish.data.data32[1] = time;
        request(wish);
    }
    // In pieces of 20 bytes, with a zero byte after the last one.
    void broadcast(const QByteArray& text) const {
        QByteArrayView rest(text.constData(), text.size() + 1);
        xcb_client_message_event_t piece = message(8, "_NET_STARTUP_INFO_BEGIN");
        while (!rest.isEmpty()) {
            const qsizetype length = std::min<qsizetype>(rest.size(), sizeof piece.data);
            piece.data = {};
            std::memcpy(piece.data.data8, rest.data(), static_cast<size_t>(length));
            send(piece, XCB_EVENT_MASK_PROPERTY_CHANGE);
            piece.type = atom(connection, "_NET_STARTUP_INFO");
            rest = rest.sliced(length);
        }
    }
};

QByteArray quoted(QByteArray text) { return '"' + text.replace('\\', "\\\\").replace('"', "\\\"") + '"'; }

void answerOnX11(xcb_connection_t* connection, const QByteArray& id, WId window) {
    const RootWindow root{connection, static_cast<xcb_window_t>(window)};
    root.goToItsDesktop(timeOf(id));
    root.activate(timeOf(id));
    if (!id.isEmpty() && id.size() <= longestId) root.broadcast("remove: ID=" + quoted(id));
    xcb_flush(connection);
}
} // namespace

void StartupNotice::answerWith(QWidget& window) const {
    const QString platform = QGuiApplication::platformName();
    // Others may have an X11 interface, too, without a connection.
    if (platform == QStringLiteral("xcb")) {
        const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        answerOnX11(x11->connection(), id, window.winId());
    } else if (!token.isEmpty() && platform.startsWith(QStringLiteral("wayland"))) {
        // Qt takes the token of the next activation from here.
        qputenv("XDG_ACTIVATION_TOKEN", token);
        window.activateWindow();
    }
}

} // namespace torvane
