// SPDX-License-Identifier: MIT
// The first instance takes whole messages of its user and survives everything else.
#include "platform/forms/InstanceListener.h"
#include "platform/base/InstanceLink.h"
#include "platform/base/InstanceProtocol.h"
#include "support/OtherProgram.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QAbstractEventDispatcher>
#include <atomic>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

using namespace torvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class InstanceListenerTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    std::optional<InstanceLink> first;
    std::unique_ptr<InstanceListener> listener;
    QByteArrayList received;

    InstanceLink link() const {
        return {opened(open(folder->native(".").constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)), "one"};
    }
    void listen(std::chrono::milliseconds patience = 20s) {
        listener = std::make_unique<InstanceListener>(first->takeListener(), patience);
        connect(listener.get(), &InstanceListener::received, this,
                [this](const QByteArray& message) { received.append(message); });
    }
    InstanceLink::Role call(const QByteArray& message) const {
        InstanceLink second = link();
        return second.meet(message, {});
    }
    Handle caller() const {
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        const QByteArray path = folder->native("one.socket");
        std::memcpy(name.sun_path, path.constData(), static_cast<size_t>(path.size()));
        Handle socket = opened(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        if (::connect(socket.number(), reinterpret_cast<sockaddr*>(&name), sizeof name) != 0) failWithErrno();
        return socket;
    }
    static void send(const Handle& socket, QByteArrayView bytes) {
        try {
            writeAll(socket, bytes);
        } catch (const RuntimeFailure&) { // a listener that has had enough
        }
    }
    // What the listener answers until it closes.
    static QByteArray answerTo(const Handle& caller) {
        QByteArray answer;
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < 20000; QCoreApplication::processEvents()) {
            char byte = 0;
            const ssize_t got = recv(caller.number(), &byte, 1, MSG_DONTWAIT);
            if (got > 0) answer += byte;
            if (got == 0 || (got < 0 && errno != EAGAIN)) return answer;
        }
        return "never closed";
    }
    // Serves events as the program does, until a message or the end of the time, and gives how often the loop
    // woke up. QTest's own waits would hide a loop that never rests, since they pause after each turn.
    int wakingsWithin(std::chrono::milliseconds time) const {
        int wakings = 0;
        QEventLoop loop;
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
                [&] { ++wakings; });
        connect(listener.get(), &InstanceListener::received, &loop, &QEventLoop::quit);
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
        return wakings;
    }
    static int openDescriptors() {
        int count = 0;
        for (int descriptor = 0; descriptor < 1024; ++descriptor) count += fcntl(descriptor, F_GETFD) >= 0;
        return count;
    }
    // Those that a program started from here would inherit.
    static int inherited() {
        int count = 0;
        for (int descriptor = 0; descriptor < 1024; ++descriptor) {
            const int flags = fcntl(descriptor, F_GETFD);
            count += flags >= 0 && (flags & FD_CLOEXEC) == 0;
        }
        return count;
    }
    const QByteArray receipt = QByteArray(1, InstanceProtocol::receipt);

private slots:
    void initTestCase() { std::signal(SIGPIPE, SIG_IGN); }
    void init() {
        received.clear();
        folder = std::make_unique<TestFolder>();
        first.emplace(link());
        QCOMPARE(first->meet("m", {}), InstanceLink::Role::first);
    }
    void cleanup() {
        listener.reset();
        first.reset();
        folder.reset();
    }

    void messages_sent_before_and_after_the_listening_began_are_received() {
        QCOMPARE(call("before"), InstanceLink::Role::second);
        listen();
        QCOMPARE(call("after"), InstanceLink::Role::second);
        QTRY_COMPARE(received, (QByteArrayList{"before", "after"}));
    }
    void a_whole_message_gets_its_receipt() {
        listen();
        const Handle one = caller();
        send(one, InstanceProtocol::framed({"a\0b", 3}));
        shutdown(one.number(), SHUT_WR);
        QCOMPARE(answerTo(one), receipt);
        QCOMPARE(received, QByteArrayList{QByteArray("a\0b", 3)});
    }
    void a_caller_that_has_left_before_its_receipt_is_heard() {
        {
            const Handle one = caller();
            send(one, InstanceProtocol::framed("left"));
        }
        const auto before = std::signal(SIGPIPE, SIG_DFL);
        listen();
        QTRY_COMPARE(received, QByteArrayList{"left"});
        std::signal(SIGPIPE, before);
    }
    void a_message_in_parts_is_put_together() {
        listen();
        const Handle one = caller();
        for (const char byte : InstanceProtocol::framed("parts")) {
            send(one, {&byte, 1});
            QCoreApplication::processEvents();
        }
        QCOMPARE(received, QByteArrayList());
        shutdown(one.number(), SHUT_WR);
        QCOMPARE(answerTo(one), receipt);
        QCOMPARE(received, QByteArrayList{"parts"});
    }
    void the_longest_message_arrives() {
        listen();
        const QByteArray message(InstanceProtocol::longestMessage, 'x');
        InstanceLink::Role role{};
        // It is joined after a failure, too.
        std::jthread second([&] { role = link().meet(message, {.total = 20s}); });
        QTRY_COMPARE_WITH_TIMEOUT(received.size(), 1, 20000);
        second.join();
        QCOMPARE(received[0], message);
        QCOMPARE(role, InstanceLink::Role::second);
    }
    void anything_else_is_dropped_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray sound = InstanceProtocol::framed("message");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("half a head") << sound.first(4);
        QTest::newRow("another mark") << QByteArray(sound).replace(0, 1, "l");
        QTest::newRow("half a message") << sound.chopped(1);
        QTest::newRow("more than a message") << sound + 'x';
        QTest::newRow("garbage") << QByteArray("GET / HTTP/1.1\r\n\r\n");
        QTest::newRow("a lie about the length") << QByteArray(sound).replace(4, 4, "\xFF\xFF\xFF\xFF");
    }
    void anything_else_is_dropped() {
        QFETCH(QByteArray, bytes);
        listen();
        const Handle one = caller();
        send(one, bytes);
        shutdown(one.number(), SHUT_WR);
        QCOMPARE(answerTo(one), QByteArray());
        QCOMPARE(call("next"), InstanceLink::Role::second);
        QTRY_COMPARE(received, QByteArrayList{"next"});
    }
    void who_sends_without_end_is_cut_off() {
        listen();
        std::atomic<qint64> taken = 0;
        std::atomic<bool> isOver = false;
        std::thread sender([&] {
            const Handle one = caller();
            const QByteArray part(1 << 16, 'x');
            while (taken < 100 << 20 && ::send(one.number(), part.data(), 1 << 16, MSG_NOSIGNAL) > 0) {
                taken += 1 << 16;
            }
            isOver = true;
        });
        QTRY_VERIFY_WITH_TIMEOUT(isOver, 20000);
        sender.join();
        QVERIFY(taken < 10 << 20);
        QCOMPARE(received, QByteArrayList());
    }
    void who_never_sends_is_dropped_and_holds_nobody_up() {
        listen(300ms);
        const Handle silent = caller();
        QCOMPARE(call("meanwhile"), InstanceLink::Role::second);
        QTRY_COMPARE(received, QByteArrayList{"meanwhile"});
        QCOMPARE(answerTo(silent), QByteArray());
    }
    void a_message_that_was_there_in_time_survives_a_stop_of_the_process_data() {
        QTest::addColumn<std::chrono::milliseconds>("stop");
        QTest::newRow("1 s") << 1000ms;
        QTest::newRow("2.2 s") << 2200ms;
        QTest::newRow("3 s") << 3000ms;
    }
    void a_message_that_was_there_in_time_survives_a_stop_of_the_process() {
        QFETCH(std::chrono::milliseconds, stop);
        listen(2s);
        const Handle one = caller();
        QTRY_COMPARE(listener->children().size(), 1); // it has been accepted
        send(one, InstanceProtocol::framed("in time"));
        shutdown(one.number(), SHUT_WR);
        std::this_thread::sleep_for(stop);
        QCOMPARE(answerTo(one), receipt);
        QCOMPARE(received, QByteArrayList{"in time"});
    }
    void at_the_end_of_the_patience_what_has_come_is_read() {
        listen(50ms);
        const Handle one = caller();
        QTRY_COMPARE(listener->children().size(), 1);
        send(one, InstanceProtocol::framed("late"));
        shutdown(one.number(), SHUT_WR);
        std::this_thread::sleep_for(100ms);
        // Timers may come first.
        QEventLoop().processEvents(QEventLoop::ExcludeSocketNotifiers);
        QCOMPARE(answerTo(one), receipt);
        QCOMPARE(received, QByteArrayList{"late"});
    }
    void closing_reports_what_has_come_and_refuses_what_comes() {
        listen();
        const Handle accepted = caller();
        const Handle half = caller();
        QTRY_COMPARE(listener->children().size(), 2);
        for (int i = 0; i < 100; ++i) {
            InstanceLink second = link();
            QCOMPARE(second.meet("queued", {.receipt = 0ms}), InstanceLink::Role::second);
        }
        send(accepted, InstanceProtocol::framed("accepted"));
        shutdown(accepted.number(), SHUT_WR);
        send(half, InstanceProtocol::framed("half").chopped(1));
        listener->close();
        QCOMPARE(received.count("accepted"), 1);
        QCOMPARE(received.count("queued"), 100);
        QCOMPARE(received.size(), 101);
        QCOMPARE(answerTo(accepted), receipt);
        QCOMPARE(answerTo(half), QByteArray());
        InstanceLink second = link();
        QCOMPARE(second.meet("later", {.total = 50ms}), InstanceLink::Role::unanswered);
        QTest::qWait(150);
        QCOMPARE(received.size(), 101);
    }
    void after_the_end_of_the_first_one_a_refused_caller_is_the_first() {
        listen();
        listener->close();
        std::atomic<bool> hasBegun = false;
        InstanceLink::Role role{};
        std::thread caller([&] {
            InstanceLink second = link();
            hasBegun = true;
            role = second.meet("later", {.total = 20s});
        });
        QTRY_VERIFY(hasBegun);
        QTest::qWait(20);
        listener.reset();
        first.reset();
        caller.join();
        QCOMPARE(role, InstanceLink::Role::first);
    }
    void a_crowd_of_silent_callers_costs_no_processor_and_goes() {
        listen(1s);
        std::vector<Handle> silent;
        for (int i = 0; i < 200; ++i) silent.push_back(caller());
        QCOMPARE(call("late"), InstanceLink::Role::second);
        const int wakings = wakingsWithin(20s);
        QCOMPARE(received, QByteArrayList{"late"});
        QVERIFY2(wakings < 2000, "busy while waiting");
        // The pause is over.
        QCOMPARE(call("later"), InstanceLink::Role::second);
        QTRY_COMPARE_WITH_TIMEOUT(received, (QByteArrayList{"late", "later"}), 20000);
    }
    void a_crowd_of_silent_callers_takes_few_descriptors() {
        std::vector<Handle> silent;
        for (int i = 0; i < 200; ++i) silent.push_back(caller());
        listen();
        const int before = openDescriptors();
        wakingsWithin(200ms);
        const int used = openDescriptors() - before;
        QVERIFY2(used > 0 && used < 100, QByteArray::number(used).constData());
    }
    void a_program_that_is_started_inherits_no_caller() {
        listen();
        const int before = inherited();
        const Handle silent = caller();
        wakingsWithin(50ms);
        QCOMPARE(inherited(), before);
    }
    void a_caller_of_another_user_is_dropped() {
        if (geteuid() != 0) QSKIP("only root can become another user");
        listen();
        folder->setMode(u"one.socket"_s, 0666);
        OtherProgram other([this] {
            if (setuid(65534) != 0) _exit(1);
            const Handle one = caller();
            send(one, InstanceProtocol::framed("from elsewhere"));
        });
        QCOMPARE(call("from here"), InstanceLink::Role::second);
        QTRY_COMPARE(received, QByteArrayList{"from here"});
        QCOMPARE(other.end(), 0);
    }
    void without_free_descriptors_calls_wait() {
        listen();
        rlimit before{};
        getrlimit(RLIMIT_NOFILE, &before);
        const Handle one = caller();
        const rlimit none{static_cast<rlim_t>(one.number()) + 1, before.rlim_max};
        send(one, InstanceProtocol::framed("late"));
        shutdown(one.number(), SHUT_WR);
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
        const int wakings = wakingsWithin(300ms);
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
        QVERIFY2(wakings < 50, "busy while waiting");
        QTRY_COMPARE(received, QByteArrayList{"late"});
    }
};

TORVANE_GUILESS_TEST(InstanceListenerTest)
#include "InstanceListenerTest.moc"
