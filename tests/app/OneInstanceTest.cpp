// SPDX-License-Identifier: MIT
// Starts with one folder meet, whatever its spelling; starts with others don't.
#include "app/OneInstance.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

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
        qputenv("XDG_RUNTIME_DIR", "");
        const QByteArray before = qgetenv("TMPDIR");
        qputenv("TMPDIR", folder->native("missing"));
        QVERIFY(isFirst(folder->native("games")) && isFirst(folder->native("games")));
        OneInstance instance(folder->native("games"));
        instance.listen([](const StartCall&) {});
        before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    }
    void files_beyond_the_limit_are_refused() {
        StartCall call;
        for (int i = 0; i < 2000; ++i) call.files.append('/' + QByteArray(4000, 'x'));
        OneInstance second(folder->native("games"));
        QCOMPARE(second.handOver(call), std::optional<int>(1));
    }
    void a_message_that_is_no_call_changes_nothing() {
        int calls = 0;
        first->listen([&](const StartCall&) { ++calls; });
        OneInstance second(folder->native("games"));
        QCOMPARE(second.handOver({"", "", {"relative"}}), std::optional<int>(0));
        OneInstance third(folder->native("games"));
        QCOMPARE(third.handOver({}), std::optional<int>(0));
        QTRY_COMPARE(calls, 1);
    }
};

TORVANE_GUILESS_TEST(OneInstanceTest)
#include "OneInstanceTest.moc"
