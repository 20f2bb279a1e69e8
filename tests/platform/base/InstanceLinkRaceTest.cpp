// SPDX-License-Identifier: MIT
// What other processes do exactly before an instance takes the lock, and file systems without locks: a hook
// runs before the call. An executable's own function takes precedence over that of the library.
#include "platform/base/InstanceLink.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <sys/file.h>
#include <sys/syscall.h>

using namespace torvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
// Returns 0 to let the call through or an error to fail with.
std::function<int()> beforeFlock;
} // namespace

// NOLINTBEGIN: the signature is that of the C library.
extern "C" int flock(int file, int operation) noexcept {
    const int error = beforeFlock ? beforeFlock() : 0;
    if (error == 0) return static_cast<int>(syscall(SYS_flock, file, operation));
    errno = error;
    return -1;
}
// NOLINTEND

class InstanceLinkRaceTest : public QObject {
    Q_OBJECT

    using Role = InstanceLink::Role;
    std::unique_ptr<TestFolder> folder;

    InstanceLink link() const {
        return {opened(open(folder->native(".").constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)), "one"};
    }
    void deleteLock() const { unlink(folder->native("one.lock").constData()); }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() {
        beforeFlock = {};
        folder.reset();
    }

    void a_lock_file_that_is_deleted_before_it_is_locked_makes_nobody_first() {
        int locks = 0;
        beforeFlock = [&] {
            if (++locks == 1) deleteLock();
            return 0;
        };
        InstanceLink first = link();
        QCOMPARE(first.meet("m", {}), Role::first);
        QVERIFY(locks > 1);
        InstanceLink second = link();
        QCOMPARE(second.meet("m", {}), Role::second);
    }
    void a_lock_file_that_another_instance_has_replaced_makes_nobody_first() {
        InstanceLink first = link();
        beforeFlock = [&] {
            beforeFlock = {};
            deleteLock();
            return first.meet("m", {}) == Role::first ? 0 : EINVAL;
        };
        InstanceLink second = link();
        QCOMPARE(second.meet("m", {}), Role::second);
    }
    void one_that_waits_for_a_listener_takes_little_of_a_processor() {
        const Handle held = opened(open(folder->native("one.lock").constData(), O_RDWR | O_CREAT, 0600));
        QCOMPARE(flock(held.number(), LOCK_EX), 0);
        int locks = 0;
        beforeFlock = [&] {
            ++locks;
            return 0;
        };
        InstanceLink one = link();
        QCOMPARE(one.meet("m", {.total = 200ms}), Role::unanswered);
        QVERIFY2(locks > 1 && locks < 100, QByteArray::number(locks).constData());
    }
    void a_file_system_without_locks_offers_no_link_data() {
        QTest::addColumn<int>("error");
        QTest::newRow("no locks") << ENOLCK;
        QTest::newRow("unsupported") << EOPNOTSUPP;
    }
    void a_file_system_without_locks_offers_no_link() {
        QFETCH(int, error);
        beforeFlock = [=] { return error; };
        InstanceLink one = link();
        QCOMPARE(one.meet("m", {}), Role::unlinked);
        QVERIFY(!folder->entries().contains(u"one.socket"_s));
    }
};

TORVANE_APPLESS_TEST(InstanceLinkRaceTest)
#include "InstanceLinkRaceTest.moc"
