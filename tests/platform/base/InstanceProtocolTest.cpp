// SPDX-License-Identifier: MIT
// What counts as a whole message, and who counts as the same user.
#include "platform/base/InstanceProtocol.h"
#include "support/TestMain.h"

#include <array>
#include <sys/socket.h>

using namespace torvane;

class InstanceProtocolTest : public QObject {
    Q_OBJECT

private slots:
    void a_message_up_to_the_limit_survives_its_frame() {
        const QByteArray longest(InstanceProtocol::longestMessage, 'x');
        for (const QByteArray& message : {QByteArray(), QByteArray("a\0b", 3), longest}) {
            const auto read = InstanceProtocol::unframed(InstanceProtocol::framed(message));
            QVERIFY(read && *read == message);
        }
        QVERIFY(!InstanceProtocol::unframed(InstanceProtocol::framed(longest + 'x')));
    }
    void only_a_connection_within_a_user_is_of_this_user() {
        std::array<int, 2> ends{};
        QCOMPARE(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
        const Handle one(ends[0]);
        const Handle other(ends[1]);
        QVERIFY(InstanceProtocol::isOfThisUser(one));
        // Nothing is known of the other end of a file, nor may that count as root's.
        const Handle file = opened(open("/dev/null", O_RDONLY | O_CLOEXEC));
        QVERIFY(!InstanceProtocol::isOfThisUser(file));
        QVERIFY(!InstanceProtocol::isOfThisUser(Handle()));
    }
};

TORVANE_APPLESS_TEST(InstanceProtocolTest)
#include "InstanceProtocolTest.moc"
