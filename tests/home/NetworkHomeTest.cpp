// SPDX-License-Identifier: MIT
// A home on a network file system without locks, leases, modes and renames that replace nothing, and what
// other programs do there meanwhile. An executable's own functions take precedence over those of the library.
#include "TreeFixture.h"
#include "support/TestMain.h"

#include <cstdarg>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/syscall.h>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
bool isOnNetwork = false;
int networkError = EINVAL;
int lockError = ENOLCK;
std::function<void()> beforeRename;
std::function<void()> beforeLease;
int modeError = 0;
mode_t refusedMode = 0; // 0 for all
} // namespace

// NOLINTBEGIN: the signatures are those of the C library.
extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept {
    if (beforeRename) beforeRename();
    if (isOnNetwork && flags != 0) {
        errno = networkError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}
extern "C" int flock(int file, int operation) noexcept {
    if (isOnNetwork) {
        errno = lockError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_flock, file, operation));
}
extern "C" int fchmod(int file, mode_t mode) noexcept {
    if (modeError != 0 && (refusedMode == 0 || mode == refusedMode)) {
        errno = modeError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fchmod, file, mode));
}
extern "C" int fcntl(int file, int command, ...) {
    va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (beforeLease && command == F_SETLEASE) beforeLease();
    if (isOnNetwork && command == F_SETLEASE) {
        errno = networkError;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fcntl, file, command, argument));
}
// NOLINTEND

class NetworkHomeTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TreeFixture> tree;

private slots:
    void init() {
        tree = std::make_unique<TreeFixture>();
        tree->makeTemplate({{u"data/a"_s, "one"}, {u"data/b"_s, "two"}});
        isOnNetwork = true;
    }
    void cleanup() {
        isOnNetwork = false;
        beforeRename = {};
        beforeLease = {};
        modeError = 0;
        refusedMode = 0;
        networkError = EINVAL;
        lockError = ENOLCK;
    }

    void a_home_is_laid_out_and_updated_data() {
        QTest::addColumn<int>("error");
        QTest::addColumn<int>("ofLocks");
        QTest::newRow("the file system does not know how") << EINVAL << ENOLCK;
        QTest::newRow("the system does not") << ENOSYS << ENOSYS;
        QTest::newRow("locks are not supported") << EINVAL << EOPNOTSUPP;
    }
    void a_home_is_laid_out_and_updated() {
        QFETCH(int, error);
        QFETCH(int, ofLocks);
        networkError = error;
        lockError = ofLocks;
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("data/b"), QByteArray("two"));
        tree->makeTemplate({{u"data/a"_s, "three"}, {u"data/b"_s, "two"}, {u"data/c"_s, "four"}}, "1.2");
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("data/a"), QByteArray("three"));
        QCOMPARE(tree->inHome("data/c"), QByteArray("four"));
        QCOMPARE(tree->folder.entries(u"home/data"_s),
                 (QStringList{u".laid-out"_s, u"a"_s, u"b"_s, u"c"_s, u"lang"_s, u"tray"_s}));
    }
    void a_file_that_appears_meanwhile_is_not_replaced() {
        beforeRename = [this] { tree->writeInHome("data/a", "mine"); };
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("data/a"), QByteArray("mine"));
        QCOMPARE(tree->inHome("data/b"), QByteArray("two"));
    }
    void one_that_goes_again_makes_room() {
        beforeRename = [this] { tree->writeInHome("data/a", "mine"); };
        tree->layOut();
        beforeRename = {};
        QVERIFY(QFile::remove(tree->folder.path(u"home/data/a"_s)));
        tree->layOut();
        QCOMPARE(tree->inHome("data/a"), QByteArray("one"));
    }
    void a_change_just_before_an_update_is_kept() {
        tree->layOut();
        tree->makeTemplate({{u"data/a"_s, "three"}, {u"data/b"_s, "two"}}, "1.2");
        beforeLease = [this] { tree->writeInHome("data/a", "mine"); };
        QCOMPARE(tree->layOut().failures.size(), 1u);
        QCOMPARE(tree->inHome("data/a"), QByteArray("mine"));
    }
    void a_file_system_without_modes_takes_files_and_updates_data() {
        QTest::addColumn<int>("error");
        QTest::newRow("not supported") << ENOTSUP;
        QTest::newRow("no such call") << ENOSYS;
    }
    void a_file_system_without_modes_takes_files_and_updates() {
        QFETCH(int, error);
        modeError = error;
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("data/a"), QByteArray("one"));
        modeError = 0;
        tree->folder.write(u"share/tree/data/a"_s, "three");
        tree->folder.setMode(u"share/tree/data/a"_s, 0755);
        tree->folder.setMode(u"share/tree/data/b"_s, 0755);
        tree->makeIndex("1.2");
        modeError = error;
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("data/a"), QByteArray("three"));
    }
    void a_mode_that_was_refused_is_given_next_time() {
        tree->layOut();
        tree->folder.setMode(u"share/tree/data/b"_s, 0755);
        tree->makeIndex("1.2");
        modeError = EPERM;
        refusedMode = 0755;
        QCOMPARE(tree->layOut().failures.size(), 1u);
        modeError = 0;
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->modeInHome("data/b"), mode_t(0755));
    }
};

TORVANE_TEST(NetworkHomeTest)
#include "NetworkHomeTest.moc"
