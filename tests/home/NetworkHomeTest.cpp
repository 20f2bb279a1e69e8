// SPDX-License-Identifier: MIT
// A home on a network file system without locks, leases and renames that replace nothing. An executable's own
// functions take precedence over those of the library.
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
extern "C" int fcntl(int file, int command, ...) {
    va_list arguments;
    va_start(arguments, command);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
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
};

TORVANE_TEST(NetworkHomeTest)
#include "NetworkHomeTest.moc"
