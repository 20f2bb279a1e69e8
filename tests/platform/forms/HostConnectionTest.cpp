// SPDX-License-Identifier: MIT
// Hosts with several addresses, some of which do not answer.
#include "platform/forms/HostConnection.h"
#include "platform/base/SystemCalls.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpServer>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
// An address of this machine at which connections are neither accepted nor refused: the queue of a listener
// that accepts nobody is full.
class SilentAddress {
public:
    explicit SilentAddress(quint16 port) {
        m_address.sin_family = AF_INET;
        m_address.sin_port = htons(port);
        inet_pton(AF_INET, "127.0.0.2", &m_address.sin_addr);
        m_handles.push_back(opened(socket(AF_INET, SOCK_STREAM, 0)));
        const int listener = m_handles.front().number();
        if (bind(listener, address(), sizeof m_address) != 0 || listen(listener, 0) != 0)
            qFatal("no listener");
        for (int i = 0; i < 4; ++i) {
            m_handles.push_back(opened(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0)));
            ::connect(m_handles.back().number(), address(), sizeof m_address);
        }
    }

private:
    const sockaddr* address() const { return reinterpret_cast<const sockaddr*>(&m_address); }

    sockaddr_in m_address{};
    std::vector<Handle> m_handles;
};

const QHostAddress silent(u"127.0.0.2"_s);
const QHostAddress refusing(u"127.0.0.3"_s);
const QHostAddress answering(QHostAddress::LocalHost);
} // namespace

class HostConnectionTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTcpServer> server;
    std::unique_ptr<SilentAddress> silence;
    std::unique_ptr<HostConnection> connection;
    QElapsedTimer clock;

    // Whether one of the addresses was reached.
    bool reaches(const QList<QHostAddress>& addresses, int milliseconds) {
        const QSignalSpy connected(connection.get(), &HostConnection::connected);
        const QSignalSpy failed(connection.get(), &HostConnection::failed);
        clock.start();
        connection->openOneOf(addresses, u"some.host"_s, server->serverPort(), milliseconds);
        if (connected.size() + failed.size() > 0) qFatal("not from within the call");
        [&] { QTRY_COMPARE_WITH_TIMEOUT(connected.size() + failed.size(), 1, 20000); }();
        return connected.size() == 1;
    }

private slots:
    void init() {
        server = std::make_unique<QTcpServer>();
        QVERIFY(server->listen(answering));
        silence = std::make_unique<SilentAddress>(server->serverPort());
        connection = std::make_unique<HostConnection>(HostConnection::Line::plain);
    }
    void cleanup() {
        connection.reset();
        silence.reset();
        server.reset();
    }

    void a_silent_address_takes_no_more_than_its_part_of_the_time_data() {
        QTest::addColumn<QList<QHostAddress>>("addresses");
        QTest::addColumn<int>("part");
        QTest::newRow("one of two") << QList{silent, answering} << 1000;
        QTest::newRow("two of three") << QList{silent, silent, answering} << 1333;
    }
    void a_silent_address_takes_no_more_than_its_part_of_the_time() {
        QFETCH(QList<QHostAddress>, addresses);
        QFETCH(int, part);
        QVERIFY(reaches(addresses, 2000));
        QCOMPARE(connection->socket().peerAddress(), answering);
        QVERIFY2(clock.elapsed() >= part - 60, qPrintable(QString::number(clock.elapsed())));
    }
    void a_refusal_leads_to_the_next_address_at_once() {
        QVERIFY(reaches({refusing, refusing, answering}, 60000));
        QVERIFY(clock.elapsed() < 10000);
    }
    void without_an_address_that_answers_it_fails_data() {
        QTest::addColumn<QList<QHostAddress>>("addresses");
        QTest::newRow("none") << QList<QHostAddress>();
        QTest::newRow("refusing") << QList{refusing};
        QTest::newRow("silent") << QList{silent};
        QTest::newRow("both") << QList{silent, refusing, silent};
    }
    void without_an_address_that_answers_it_fails() {
        QFETCH(QList<QHostAddress>, addresses);
        QVERIFY(!reaches(addresses, 300));
    }
    void a_host_is_looked_up_and_an_address_taken_as_it_is_data() {
        QTest::addColumn<QString>("host");
        QTest::newRow("name") << u"localhost"_s;
        QTest::newRow("address") << u"127.0.0.1"_s;
    }
    void a_host_is_looked_up_and_an_address_taken_as_it_is() {
        QFETCH(QString, host);
        const QSignalSpy connected(connection.get(), &HostConnection::connected);
        connection->open(host, server->serverPort(), 20000);
        QTRY_COMPARE_WITH_TIMEOUT(connected.size(), 1, 20000);
    }
    void addresses_that_have_not_answered_keep_no_socket() {
        QVERIFY(reaches({silent, refusing, answering}, 900));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(connection->findChildren<QTcpSocket*>().size(), 1);
    }
    void a_connection_lasts_beyond_the_time_for_the_tries() {
        QVERIFY(reaches({silent, answering}, 400));
        const QSignalSpy failed(connection.get(), &HostConnection::failed);
        QTest::qWait(500);
        QCOMPARE(failed.size(), 0);
        QCOMPARE(connection->socket().state(), QAbstractSocket::ConnectedState);
    }
    void closed_before_its_first_try_it_connects_to_nobody() {
        const QSignalSpy arrived(server.get(), &QTcpServer::newConnection);
        connection->openOneOf({answering}, u"some.host"_s, server->serverPort(), 100);
        connection->close();
        QTest::qWait(150);
        QCOMPARE(arrived.size(), 0);
        QVERIFY(connection->findChildren<QTcpSocket*>().isEmpty());
    }
    void closed_it_says_nothing_any_more() {
        const QSignalSpy connected(connection.get(), &HostConnection::connected);
        const QSignalSpy failed(connection.get(), &HostConnection::failed);
        connection->openOneOf({silent, answering}, u"some.host"_s, server->serverPort(), 100);
        QCoreApplication::processEvents();
        connection->close();
        QTest::qWait(150);
        QCOMPARE(connected.size() + failed.size(), 0);
    }
};

TORVANE_GUILESS_TEST(HostConnectionTest)
#include "HostConnectionTest.moc"
