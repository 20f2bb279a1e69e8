// SPDX-License-Identifier: MIT
// One instance is the first one, whatever the others do and whatever earlier ones have left.
#include "platform/base/InstanceLink.h"
#include "platform/base/InstanceProtocol.h"
#include "support/OtherProgram.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <atomic>
#include <list>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

using namespace torvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class InstanceLinkTest : public QObject {
    Q_OBJECT

    using Role = InstanceLink::Role;
    std::unique_ptr<TestFolder> folder;
    inline static int handle = -1; // of a listener in another process

    InstanceLink link() const {
        return {opened(open(folder->native(".").constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)), "one"};
    }
    Role meet(const QByteArray& message = "m", std::chrono::milliseconds patience = 1s) const {
        InstanceLink one = link();
        return one.meet(message, {.total = patience});
    }
    // An instance of another process, which never serves its calls.
    OtherProgram firstInOtherProcess() const {
        return OtherProgram([this] {
            static InstanceLink one = link();
            if (one.meet("m", {}) != Role::first) _exit(1);
        });
    }
    // All that the next caller has sent; nothing if there is no caller.
    static std::optional<QByteArray> nextMessage(const Handle& listener,
                                                 const QByteArray& answer = {1, InstanceProtocol::receipt}) {
        const Handle caller(accept4(listener.number(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!caller.isOpen()) return std::nullopt;
        QByteArray bytes;
        std::array<char, 4096> part;
        ssize_t got = 0;
        while ((got = recv(caller.number(), part.data(), part.size(), 0)) > 0) bytes.append(part.data(), got);
        send(caller.number(), answer.constData(), static_cast<size_t>(answer.size()), MSG_NOSIGNAL);
        return InstanceProtocol::unframed(bytes);
    }
    static bool hasCaller(const Handle& listener, int milliseconds) {
        pollfd look{listener.number(), POLLIN, 0};
        return poll(&look, 1, milliseconds) > 0;
    }
    Handle heldLock() const {
        Handle lock =
            opened(open(folder->native("one.lock").constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
        if (flock(lock.number(), LOCK_EX) != 0) failWithErrno();
        return lock;
    }
    // A socket in the place of the first instance's own.
    Handle foreignListener() const {
        sockaddr_un name{};
        name.sun_family = AF_UNIX;
        const QByteArray path = folder->native("one.socket");
        std::memcpy(name.sun_path, path.constData(), static_cast<size_t>(path.size()));
        Handle listener = opened(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
        if (bind(listener.number(), reinterpret_cast<sockaddr*>(&name), sizeof name) != 0) failWithErrno();
        if (::listen(listener.number(), 1000) != 0) failWithErrno();
        return listener;
    }
    // The number of descriptors that a program started from here would inherit.
    static int inherited() {
        int count = 0;
        for (int descriptor = 0; descriptor < 256; ++descriptor) {
            const int flags = fcntl(descriptor, F_GETFD);
            if (flags >= 0 && (flags & FD_CLOEXEC) == 0) ++count;
        }
        return count;
    }
    mode_t modeOf(const QByteArray& name) const {
        struct stat info {};
        return lstat(folder->native(name).constData(), &info) == 0 ? info.st_mode & 07777 : 0;
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void the_first_listens_in_a_socket_of_its_user_alone() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        QVERIFY(first.takeListener().isOpen());
        QCOMPARE(modeOf("one.socket"), mode_t{0600});
        QCOMPARE(modeOf("one.lock"), mode_t{0600});
    }
    void the_second_hands_its_message_over_to_one_that_is_busy() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        const QByteArray message("any\0bytes\xFF", 10);
        QCOMPARE(meet(message), Role::second);
        QCOMPARE(meet(QByteArray()), Role::second);
        const Handle listener = first.takeListener();
        QCOMPARE(nextMessage(listener), message);
        QCOMPARE(nextMessage(listener), QByteArray());
        QVERIFY(!nextMessage(listener));
    }
    void a_busy_one_keeps_the_messages_of_a_hundred() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < 100; ++i) {
            InstanceLink second = link();
            QCOMPARE(second.meet(QByteArray::number(i), {.total = 1s, .receipt = 0ms}), Role::second);
        }
        QVERIFY2(clock.elapsed() < 20000, "waits for one that is busy");
        const Handle listener = first.takeListener();
        for (int i = 0; i < 100; ++i) QCOMPARE(nextMessage(listener), QByteArray::number(i));
    }
    void a_busy_one_keeps_the_paths_of_a_thousand_files() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        const QByteArray message = QByteArray(250, 'x').repeated(1000);
        QCOMPARE(meet(message, 300ms), Role::second);
        QCOMPARE(nextMessage(first.takeListener()), message);
    }
    void the_receipt_ends_the_wait() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        const Handle listener = first.takeListener();
        std::thread taker([&] {
            if (hasCaller(listener, 20000)) nextMessage(listener);
        });
        QElapsedTimer clock;
        clock.start();
        InstanceLink second = link();
        const Role role = second.meet("m", {.total = 20s, .receipt = 20s});
        taker.join();
        QCOMPARE(role, Role::second);
        QVERIFY2(clock.elapsed() < 10000, "waits for more than the receipt");
    }
    void without_a_receipt_from_one_that_has_read_it_the_message_is_not_delivered_data() {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("something else") << QByteArray("no");
    }
    void without_a_receipt_from_one_that_has_read_it_the_message_is_not_delivered() {
        QFETCH(QByteArray, answer);
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        const Handle listener = first.takeListener();
        std::atomic<bool> isOver = false;
        std::thread taker([&] {
            while (!isOver) {
                if (hasCaller(listener, 10)) nextMessage(listener, answer);
            }
        });
        InstanceLink second = link();
        const Role role = second.meet("m", {.total = 300ms, .receipt = 20s});
        isOver = true;
        taker.join();
        QCOMPARE(role, Role::unanswered);
    }
    void a_socket_that_another_user_holds_gets_no_message() {
        if (geteuid() != 0) QSKIP("only root can become another user");
        folder->setMode(u"."_s, 0777);
        const Handle lock = heldLock();
        OtherProgram other(
            [this] {
                if (setuid(65534) != 0) _exit(1);
                static const Handle listener = foreignListener();
                handle = listener.number();
            },
            [] { _exit(whatCallersSent(handle)); });
        QCOMPARE(meet("secret", 100ms), Role::unanswered);
        QCOMPARE(other.end(), 0);
    }
    void a_program_that_an_instance_starts_inherits_none_of_its_descriptors() {
        // A game that outlives the first instance would keep the lock, and with it all later starts out.
        const int before = inherited();
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        const Handle listener = first.takeListener();
        QCOMPARE(inherited(), before);
    }
    void instances_of_other_names_do_not_meet() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        InstanceLink other(opened(open(folder->native(".").constData(), O_RDONLY | O_DIRECTORY)), "two");
        QCOMPARE(other.meet("m", {}), Role::first);
    }
    void the_socket_of_a_dead_process_is_replaced() {
        OtherProgram dead = firstInOtherProcess();
        QCOMPARE(meet(), Role::second);
        dead.kill();
        QVERIFY(modeOf("one.socket") != 0);
        QCOMPARE(meet(), Role::first);
    }
    void whatever_lies_in_the_sockets_place_is_replaced() {
        folder->write(u"one.socket"_s, "a file");
        QCOMPARE(meet(), Role::first);
        QCOMPARE(unlink(folder->native("one.socket").constData()), 0);
        folder->write(u"target"_s, "kept");
        QCOMPARE(symlink("target", folder->native("one.socket").constData()), 0);
        QCOMPARE(meet(), Role::first);
        QCOMPARE(folder->read(u"target"_s), QByteArray("kept"));
    }
    void where_no_lock_or_socket_can_be_made_there_is_no_link() {
        folder->makeFolder(u"one.socket"_s);
        QCOMPARE(meet(), Role::unlinked);
        QCOMPARE(rmdir(folder->native("one.socket").constData()), 0);
        QCOMPARE(meet(), Role::first);
        QCOMPARE(unlink(folder->native("one.lock").constData()), 0);
        QCOMPARE(symlink("elsewhere", folder->native("one.lock").constData()), 0);
        QCOMPARE(meet(), Role::unlinked);
        QVERIFY(!QFile::exists(folder->path(u"elsewhere"_s)));
        QCOMPARE(unlink(folder->native("one.lock").constData()), 0);
        folder->makeFolder(u"one.lock"_s);
        QCOMPARE(meet(), Role::unlinked);
    }
    void one_that_can_not_listen_keeps_nobody_out() {
        folder->makeFolder(u"one.socket"_s);
        InstanceLink one = link();
        QCOMPARE(one.meet("m", {}), Role::unlinked);
        QCOMPARE(meet(), Role::unlinked);
    }
    void a_lock_without_a_listener_is_reported_in_time() {
        const Handle lock = heldLock();
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(meet("m", 100ms), Role::unanswered);
        QVERIFY2(clock.elapsed() < 5000, "waits too long");
    }
    void a_first_instance_that_ends_without_taking_the_message_is_succeeded() {
        OtherProgram first(
            [this] {
                static InstanceLink one = link();
                if (one.meet("m", {}) != Role::first) _exit(1);
                static Handle listener = one.takeListener();
                handle = listener.number();
            },
            [] {
                pollfd look{handle, POLLIN, 0};
                poll(&look, 1, 20000);
            });
        first.letGo();
        InstanceLink second = link();
        QCOMPARE(second.meet("m", {.total = 20s, .receipt = 20s}), Role::first);
        QCOMPARE(first.end(), 0);
    }
    void a_deleted_lock_file_keeps_nobody_out() {
        const Handle lock = heldLock();
        QCOMPARE(unlink(folder->native("one.lock").constData()), 0);
        QCOMPARE(meet(), Role::first);
    }
    void a_message_beyond_the_limit_is_refused() {
        InstanceLink first = link();
        const QByteArray tooLong(InstanceProtocol::longestMessage + 1, 'x');
        QCOMPARE(first.meet(tooLong, {}), Role::first);
        QCOMPARE(meet(tooLong), Role::tooLong);
        QVERIFY(!nextMessage(first.takeListener()));
    }
    void one_that_closes_in_the_middle_of_a_message_does_the_sender_no_harm() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        const Handle listener = first.takeListener();
        std::atomic<bool> isOver = false;
        std::thread taker([&] {
            while (!isOver) {
                if (hasCaller(listener, 10))
                    Handle(accept4(listener.number(), nullptr, nullptr, SOCK_CLOEXEC));
            }
        });
        const Role role = meet(QByteArray(InstanceProtocol::longestMessage, 'x'), 300ms);
        isOver = true;
        taker.join();
        QCOMPARE(role, Role::unanswered);
    }
    void a_message_that_the_system_can_not_keep_for_a_busy_instance_is_given_up() {
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        QCOMPARE(meet(QByteArray(InstanceProtocol::longestMessage, 'x'), 100ms), Role::unanswered);
        QVERIFY(!nextMessage(first.takeListener()));
    }
    void paths_of_any_length_work() {
        QString deep = u"a"_s.repeated(200);
        folder->makeFolder(deep);
        InstanceLink one(opened(open(folder->native(deep.toLatin1()).constData(), O_RDONLY | O_DIRECTORY)),
                         "one");
        QCOMPARE(one.meet("m", {}), Role::first);
        QVERIFY(QFileInfo::exists(folder->path(deep + u"/one.socket"_s)));
    }
    void of_a_hundred_at_once_one_is_first_and_gets_the_messages_of_all_others() {
        folder->makeFolder(u"first"_s);
        folder->makeFolder(u"second"_s);
        std::list<OtherProgram> starts;
        constexpr int count = 100;
        for (int i = 0; i < count; ++i) {
            starts.emplace_back([] {}, [this, i] { startAtOnce(i, count); });
        }
        for (OtherProgram& start : starts) start.letGo();
        int failures = 0;
        for (OtherProgram& start : starts) failures += start.end() == 0 ? 0 : 1;
        QCOMPARE(failures, 0);
        QCOMPARE(folder->entries(u"first"_s).size(), 1);
        QCOMPARE(folder->entries(u"second"_s).size(), count - 1);
        QCOMPARE(folder->read(u"first/"_s + folder->entries(u"first"_s).first()).toInt(), count - 1);
    }

private:
    // 0 if there were callers and none of them has sent anything.
    static int whatCallersSent(int listener) {
        int callers = 0;
        for (int caller = -1; (caller = accept(listener, nullptr, nullptr)) >= 0; ++callers) {
            char byte = 0;
            if (recv(caller, &byte, 1, 0) > 0) return 2;
        }
        return callers > 0 ? 0 : 3;
    }
    // Leaves a file that says what this process was; the first one counts the messages of the others.
    void startAtOnce(int number, int count) const {
        InstanceLink one = link();
        const Role role = one.meet(QByteArray::number(number), {.total = 20s});
        if (role == Role::second) {
            folder->write(u"second/%1"_s.arg(number), "x");
            return;
        }
        if (role != Role::first) _exit(1);
        const Handle listener = one.takeListener();
        QSet<QByteArray> messages;
        pollfd look{listener.number(), POLLIN, 0};
        while (messages.size() < count - 1 && poll(&look, 1, 20000) > 0) {
            if (const auto message = nextMessage(listener)) messages.insert(*message);
        }
        folder->write(u"first/%1"_s.arg(number), QByteArray::number(messages.size()));
    }
};

TORVANE_APPLESS_TEST(InstanceLinkTest)
#include "InstanceLinkTest.moc"
