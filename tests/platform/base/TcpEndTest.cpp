// SPDX-License-Identifier: MIT
// How connections end, asked of the system on this machine.
#include "platform/base/TcpEnd.h"
#include "support/TestMain.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

using namespace torvane;

namespace {
// Both ends of a connection.
struct Connection {
    Handle here;
    Handle there;

    Connection() {
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* address = reinterpret_cast<sockaddr*>(&place);
        socklen_t size = sizeof place;
        const Handle listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        here = Handle(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        if (bind(listener.number(), address, size) != 0 || listen(listener.number(), 1) != 0 ||
            getsockname(listener.number(), address, &size) != 0 ||
            connect(here.number(), address, size) != 0) {
            qFatal("no connection");
        }
        there = Handle(accept4(listener.number(), nullptr, nullptr, SOCK_CLOEXEC));
    }
    void endOrderly() { there = Handle(); }
    void reset() {
        const linger hard{.l_onoff = 1, .l_linger = 0};
        setsockopt(there.number(), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
        there = Handle();
    }
};

// The open files of this process that other programs would get when it starts them.
QSet<int> inherited() {
    QSet<int> numbers;
    for (int number = 0; number < 256; ++number) {
        const int flags = fcntl(number, F_GETFD);
        if (flags >= 0 && (flags & FD_CLOEXEC) == 0) numbers.insert(number);
    }
    return numbers;
}
} // namespace

class TcpEndTest : public QObject {
    Q_OBJECT

private slots:
    void a_reset_is_distinguished_from_an_orderly_end_and_from_none() {
        Connection open;
        Connection ended;
        Connection broken;
        const TcpEnd endOfOpen(open.here.number());
        const TcpEnd endOfEnded(ended.here.number());
        const TcpEnd endOfBroken(broken.here.number());
        ended.endOrderly();
        broken.reset();
        QTRY_VERIFY(endOfBroken.wasReset());
        QVERIFY(!endOfEnded.wasReset());
        QVERIFY(!endOfOpen.wasReset());
        QVERIFY(!TcpEnd().wasReset());
    }
    void it_answers_when_the_socket_that_it_was_made_from_is_closed() {
        Connection broken;
        const TcpEnd end(broken.here.number());
        broken.here = Handle();
        broken.reset();
        QTRY_VERIFY(end.wasReset());
    }
    void programs_that_are_started_meanwhile_do_not_get_the_socket() {
        const Connection connection;
        const QSet<int> before = inherited();
        const TcpEnd end(connection.here.number());
        QCOMPARE(inherited(), before);
    }
};

TORVANE_APPLESS_TEST(TcpEndTest)
#include "TcpEndTest.moc"
