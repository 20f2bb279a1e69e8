// SPDX-License-Identifier: MIT
// Starts with one folder meet, whatever its spelling; starts with others don't.
#include "app/OneInstance.h"
#include "support/OtherProgram.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <cstdio>
#include <sys/file.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class OneInstanceTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<OneInstance> first;

    static bool isFirst(const QByteArray& path) {
        OneInstance instance(path);
        return !instance.handOver({}).has_value();
    }
    // The only lock in the runtime folder: that of the first instance.
    QString lock() const {
        return u"run/"_s + QDir(folder->path(u"run"_s)).entryList({u"*.lock"_s}).value(0);
    }
    void callAgain(const StartCall& call) const {
        OneInstance second(folder->native("games"));
        QCOMPARE(second.handOver(call), std::optional<int>(0));
    }
    // What another process reports that hands a call over and exits with what it gets.
    QByteArray reportOf(const StartCall& call, int expectedStatus) const {
        const int status = inOtherProgram([&] {
            if (std::freopen(folder->native("errors").constData(), "w", stderr) == nullptr) _exit(98);
            const int ended = OneInstance(folder->native("games")).handOver(call).value_or(99);
            std::fflush(nullptr);
            _exit(ended);
        });
        if (!WIFEXITED(status) || WEXITSTATUS(status) != expectedStatus) return "another status";
        return folder->read(u"errors"_s);
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        folder->makeFolder(u"run"_s);
        folder->setMode(u"run"_s, 0700);
        folder->makeFolder(u"games"_s);
        qputenv("XDG_RUNTIME_DIR", folder->native("run"));
        first = std::make_unique<OneInstance>(folder->native("games"));
        QVERIFY(!first->handOver({}).has_value());
    }
    void cleanup() {
        first.reset();
        folder.reset();
    }

    void a_second_start_hands_its_call_over() {
        QList<StartCall> calls;
        first->listen([&](const StartCall& call) { calls.append(call); });
        OneInstance second(folder->native("games"));
        QCOMPARE(second.handOver({"id", "token", {"/a\xFF", "/b"}}), std::optional<int>(0));
        QTRY_COMPARE(calls.size(), 1);
        QCOMPARE(calls[0].startupId, QByteArray("id"));
        QCOMPARE(calls[0].activationToken, QByteArray("token"));
        QCOMPARE(calls[0].files, (QByteArrayList{"/a\xFF", "/b"}));
    }
    void other_spellings_of_the_folder_mean_the_same() {
        QCOMPARE(symlink("games", folder->native("link").constData()), 0);
        for (const char* path : {"games/", "link", "games/../games", "./games"}) {
            QVERIFY2(!isFirst(folder->native(path)), path);
        }
    }
    void other_folders_do_not_meet_even_if_they_do_not_exist_yet() {
        folder->makeFolder(u"others"_s);
        QVERIFY(isFirst(folder->native("others")));
        QVERIFY(isFirst(folder->native("new")));
        QVERIFY(isFirst(folder->native("games/new")));
    }
    void a_folder_that_is_made_later_is_the_same() {
        QCOMPARE(symlink(".", folder->native("link").constData()), 0);
        OneInstance early(folder->native("link/new/home"));
        QVERIFY(!early.handOver({}).has_value());
        folder->makeFolder(u"new/home"_s);
        QVERIFY(!isFirst(folder->native("new/home")));
    }
    void without_a_runtime_folder_every_start_goes_on() {
        qputenv("XDG_RUNTIME_DIR", folder->native("missing"));
        const QByteArray before = qgetenv("TMPDIR");
        qputenv("TMPDIR", folder->native("missing"));
        QVERIFY(isFirst(folder->native("games")) && isFirst(folder->native("games")));
        OneInstance instance(folder->native("games"));
        instance.listen([](const StartCall&) {});
        before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    }
    void where_the_runtime_folder_takes_no_lock_every_start_goes_on() {
        first.reset();
        const QString path = lock();
        QVERIFY(QFile::remove(folder->path(path)));
        folder->makeFolder(path);
        QVERIFY(isFirst(folder->native("games")));
    }
    void a_runtime_folder_of_any_length_will_do() {
        const QString deep = u"run/"_s + u"a"_s.repeated(200);
        folder->makeFolder(deep);
        folder->setMode(deep, 0700);
        qputenv("XDG_RUNTIME_DIR", folder->native(deep.toLatin1()));
        OneInstance one(folder->native("games"));
        QVERIFY(!one.handOver({}).has_value());
        QVERIFY(!isFirst(folder->native("games")));
    }
    void starts_of_two_users_with_the_same_folder_and_environment_do_not_meet() {
        if (geteuid() != 0) QSKIP("only root can become another user");
        folder->makeFolder(u"tmp"_s);
        folder->setMode(u"tmp"_s, 01777);
        const QByteArray before = qgetenv("TMPDIR");
        qputenv("TMPDIR", folder->native("tmp"));
        const int status = inOtherProgram([this] {
            if (setuid(65534) != 0) _exit(98);
            OneInstance theirs(folder->native("games"));
            if (theirs.handOver({}).has_value()) _exit(1);
            _exit(isFirst(folder->native("games")) ? 2 : 0);
        });
        before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
        QCOMPARE(WEXITSTATUS(status), 0);
    }
    void one_that_does_not_answer_is_reported() {
        first.reset();
        const Handle held = opened(open(folder->native(lock().toLatin1()).constData(), O_RDWR | O_CLOEXEC));
        QCOMPARE(flock(held.number(), LOCK_EX), 0);
        QCOMPARE(reportOf({}, 1), QByteArray("torvane: the running one does not answer\n"));
    }
    void files_beyond_the_limit_are_refused() {
        StartCall call;
        for (int i = 0; i < 2000; ++i) call.files.append('/' + QByteArray(4000, 'x'));
        QCOMPARE(reportOf(call, 1), QByteArray("torvane: too many files for the running one\n"));
    }
    void a_call_that_is_not_understood_is_one_without_files() {
        QList<StartCall> calls;
        first->listen([&](const StartCall& call) { calls.append(call); });
        callAgain({"id", "token", {"relative"}});
        QTRY_COMPARE(calls.size(), 1);
        QCOMPARE(calls[0].packed(), StartCall().packed());
    }
    void calls_that_nobody_has_served_are_given_at_the_end_as_one() {
        callAgain({"id1", "token1", {"/a", "/b"}});
        callAgain({"id2", "token2", {"/c"}});
        const auto all = first->close();
        QVERIFY(all.has_value());
        QCOMPARE(all->packed(), (StartCall{"id2", "token2", {"/a", "/b", "/c"}}.packed()));
    }
    void calls_that_were_reported_are_not_given_at_the_end() {
        int calls = 0;
        first->listen([&](const StartCall&) { ++calls; });
        callAgain({});
        QTRY_COMPARE(calls, 1);
        callAgain({"", "", {"/later"}});
        const auto rest = first->close();
        QVERIFY(rest.has_value());
        QCOMPARE(rest->files, QByteArrayList{"/later"});
        QCOMPARE(calls, 1);
    }
    void without_calls_nothing_is_given_at_the_end() {
        QVERIFY(!first->close().has_value());
        first->listen([](const StartCall&) {});
        QVERIFY(!first->close().has_value());
        QVERIFY(!OneInstance(folder->native("other")).close().has_value());
    }
};

TORVANE_GUILESS_TEST(OneInstanceTest)
#include "OneInstanceTest.moc"
