// SPDX-License-Identifier: MIT
// Laying out a user's folder. The rules file by file are tested through the build's program too
// (packaging.lay_out); here is what an installed program adds: versions, an index, failures, other starts.
#include "TreeFixture.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <atomic>
#include <chrono>
#include <sys/file.h>
#include <thread>

using namespace torvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class LayOutTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TreeFixture> tree;

    // All names below the home with inode and times of change.
    QStringList statesInHome() const {
        QStringList states;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(tree->home().toStdString())) {
            struct stat info {};
            lstat(entry.path().c_str(), &info);
            states.append(u"%1 %2 %3 %4"_s.arg(QString::fromStdString(entry.path().string()))
                              .arg(info.st_ino)
                              .arg(info.st_mtim.tv_nsec)
                              .arg(info.st_ctim.tv_nsec));
        }
        states.sort();
        return states;
    }
    QStringList hiddenInHome() const {
        QStringList names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(tree->home().toStdString())) {
            const QString name = QString::fromStdString(entry.path().filename().string());
            if (name.startsWith(u".torvane-"_s)) names.append(name);
        }
        return names;
    }
    Handle lockedHome() const {
        QDir().mkpath(tree->folder.path(u"home"_s));
        Handle home(open(tree->home().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (flock(home.number(), LOCK_EX) != 0) qFatal("can't lock");
        return home;
    }
    // A run that begins while another one is at work, and ends after it. Whether it did not wait.
    bool runsBehindAnother(const std::function<void()>& other) const {
        const Handle lock = lockedHome();
        std::atomic<bool> isDone = false;
        std::thread run([&] {
            tree->layOut();
            isDone = true;
        });
        QTest::qWait(50);
        const bool wasDone = isDone;
        other();
        flock(lock.number(), LOCK_UN);
        run.join();
        return wasDone;
    }

private slots:
    void init() {
        tree = std::make_unique<TreeFixture>();
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "one"}, {u"emuladores/mgba.sh"_s, "#!"}});
    }

    void all_files_and_the_expected_folders_are_made_with_the_home() {
        const LayOut::Report report = tree->layOut();
        QCOMPARE(report.created, 2);
        QVERIFY(report.failures.empty());
        QCOMPARE(tree->inHome("data/lang/lang_eng.tvl"), QByteArray("one"));
        for (const char* folder : {"roms/data/screenshots", "ziptemp", "data/tray"}) {
            QVERIFY2(tree->isInHome(folder), folder);
        }
    }
    void a_file_has_its_mode_when_it_gets_its_name() {
        tree->folder.setMode(u"share/tree/emuladores/mgba.sh"_s, 0755);
        tree->makeIndex("1.1");
        tree->layOut();
        QCOMPARE(tree->modeInHome("emuladores/mgba.sh"), mode_t(0755));
    }
    void without_anything_to_do_nothing_is_touched() {
        tree->layOut();
        const QStringList before = statesInHome();
        QCOMPARE(tree->layOut().created, 0);
        QCOMPARE(statesInHome(), before);
    }
    void without_anything_to_do_no_file_of_the_template_is_read() {
        tree->layOut();
        QVERIFY(QDir(tree->folder.path(u"share/tree/data/lang"_s)).removeRecursively());
        const LayOut::Report report = tree->layOut();
        QVERIFY(report.failures.empty() && report.missing.isEmpty());
    }
    void an_untouched_file_is_updated_and_a_changed_one_is_not() {
        tree->layOut();
        tree->writeInHome("emuladores/mgba.sh", "mine");
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "two"}, {u"emuladores/mgba.sh"_s, "#!2"}}, "1.2");
        const LayOut::Report report = tree->layOut();
        QCOMPARE(report.updated, 1);
        QCOMPARE(report.kept, 1);
        QCOMPARE(tree->inHome("data/lang/lang_eng.tvl"), QByteArray("two"));
        QCOMPARE(tree->inHome("emuladores/mgba.sh"), QByteArray("mine"));
    }
    void a_file_that_was_deleted_stays_deleted() {
        tree->layOut();
        QVERIFY(QFile::remove(tree->folder.path(u"home/emuladores/mgba.sh"_s)));
        tree->makeTemplate({{u"emuladores/mgba.sh"_s, "#!2"}}, "1.2");
        tree->layOut();
        QVERIFY(!tree->isInHome("emuladores/mgba.sh"));
    }
    void an_updated_file_keeps_the_mode_that_the_user_chose() {
        tree->layOut();
        tree->folder.setMode(u"home/data/lang/lang_eng.tvl"_s, 0600);
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "two"}}, "1.2");
        tree->layOut();
        QCOMPARE(tree->inHome("data/lang/lang_eng.tvl"), QByteArray("two"));
        QCOMPARE(tree->modeInHome("data/lang/lang_eng.tvl"), mode_t(0600));
    }
    void an_update_leaves_the_modes_of_other_files() {
        tree->layOut();
        tree->folder.setMode(u"home/emuladores/mgba.sh"_s, 0700);
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "two"}, {u"emuladores/mgba.sh"_s, "#!"}}, "1.2");
        tree->layOut();
        QCOMPARE(tree->modeInHome("emuladores/mgba.sh"), mode_t(0700));
    }
    void an_update_brings_a_new_mode_with_new_content() {
        tree->layOut();
        tree->folder.write(u"share/tree/emuladores/mgba.sh"_s, "#!2");
        tree->folder.setMode(u"share/tree/emuladores/mgba.sh"_s, 0755);
        tree->makeIndex("1.2");
        tree->layOut();
        QCOMPARE(tree->inHome("emuladores/mgba.sh"), QByteArray("#!2"));
        QCOMPARE(tree->modeInHome("emuladores/mgba.sh"), mode_t(0755));
    }

    void a_tree_of_a_newer_version_stays_as_it_is_data() {
        QTest::addColumn<QByteArray>("inHome");
        QTest::addColumn<QByteArray>("ofProgram");
        QTest::addColumn<bool>("isNewer");
        QTest::newRow("newer") << QByteArray("1.10") << QByteArray("1.9") << true;
        QTest::newRow("much newer") << QByteArray("2.0") << QByteArray("1.99") << true;
        QTest::newRow("the same") << QByteArray("1.1") << QByteArray("1.1") << false;
        QTest::newRow("older") << QByteArray("1.9") << QByteArray("1.10") << false;
        QTest::newRow("unknown") << QByteArray() << QByteArray("1.1") << false;
        QTest::newRow("of a program without") << QByteArray("1.1") << QByteArray() << false;
    }
    void a_tree_of_a_newer_version_stays_as_it_is() {
        QFETCH(QByteArray, inHome);
        QFETCH(QByteArray, ofProgram);
        QFETCH(bool, isNewer);
        tree->makeTemplate({{u"data/a"_s, "first"}}, inHome);
        tree->layOut();
        const QStringList before = statesInHome();
        tree->makeTemplate({{u"data/a"_s, "second"}, {u"data/b"_s, "added"}}, ofProgram);
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("data/a"), QByteArray(isNewer ? "first" : "second"));
        if (isNewer) QCOMPARE(statesInHome(), before);
    }

    void a_version_that_changes_no_file_is_recorded_too() {
        tree->layOut();
        tree->makeIndex("1.3");
        tree->layOut();
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "of version 1.2"}}, "1.2");
        tree->layOut();
        QCOMPARE(tree->inHome("data/lang/lang_eng.tvl"), QByteArray("one"));
    }
    void a_tree_without_a_version_leaves_the_recorded_one() {
        tree->layOut();
        tree->makeTemplate({{u"data/a"_s, "added"}}, QByteArray());
        tree->layOut();
        QCOMPARE(TreeRecord::of(tree->home()).version, QByteArray("1.1"));
    }

    // An upgrade of the package replaces one file after the other.
    void a_source_that_is_not_what_the_index_says_is_left_for_the_next_start() {
        tree->folder.write(u"share/tree/data/lang/lang_eng.tvl"_s, "not yet");
        const LayOut::Report report = tree->layOut();
        QCOMPARE(report.missing.size(), 1);
        QVERIFY(!tree->isInHome("data/lang/lang_eng.tvl"));
        tree->folder.write(u"share/tree/data/lang/lang_eng.tvl"_s, "one");
        tree->layOut();
        QCOMPARE(tree->inHome("data/lang/lang_eng.tvl"), QByteArray("one"));
    }
    void a_source_that_is_missing_is_left_for_the_next_start() {
        QVERIFY(QFile::remove(tree->folder.path(u"share/tree/data/lang/lang_eng.tvl"_s)));
        const LayOut::Report report = tree->layOut();
        QCOMPARE(report.missing.size(), 1);
        QVERIFY(report.failures.empty());
        QCOMPARE(tree->inHome("emuladores/mgba.sh"), QByteArray("#!"));
    }
    void a_source_that_cannot_be_read_is_reported() {
        const QString source = tree->folder.path(u"share/tree/data/lang/lang_eng.tvl"_s);
        QVERIFY(QFile::remove(source) && QDir().mkpath(source));
        const LayOut::Report report = tree->layOut();
        QVERIFY(report.missing.isEmpty());
        QCOMPARE(report.failures.size(), 1u);
        QCOMPARE(Paths::real(report.failures.front().file()), source.toUtf8());
    }
    void a_file_in_place_of_a_folder_is_left_alone() {
        tree->layOut();
        QVERIFY(QDir(tree->folder.path(u"home/emuladores"_s)).removeRecursively());
        tree->writeInHome("emuladores", "mine");
        tree->makeTemplate({{u"emuladores/mgba.sh"_s, "#!2"}}, "1.2");
        QCOMPARE(tree->layOut().kept, 1);
        QCOMPARE(tree->inHome("emuladores"), QByteArray("mine"));
    }
    // The library may be on a disk that is not always there.
    void a_link_that_leads_nowhere_is_left_alone_until_it_leads_somewhere_data() {
        QTest::addColumn<QString>("linked");
        QTest::newRow("the library") << u"roms"_s;
        QTest::newRow("a folder in it") << u"roms/data"_s;
        QTest::newRow("its games") << u"roms/demo"_s;
    }
    void a_link_that_leads_nowhere_is_left_alone_until_it_leads_somewhere() {
        QFETCH(QString, linked);
        tree->makeTemplate({{u"roms/demo/game.gb"_s, "one"}, {u"roms/data/x"_s, "two"}});
        tree->folder.makeFolder(u"home/roms"_s);
        QDir(tree->folder.path(u"home/"_s)).rmdir(linked);
        QVERIFY(
            QFile::link(tree->folder.path(u"media/disk/games"_s), tree->folder.path(u"home/"_s + linked)));
        for (int start = 0; start < 2; ++start) {
            QVERIFY(tree->layOut().failures.empty());
            QVERIFY(!QFileInfo::exists(tree->folder.path(u"media"_s)));
        }
        tree->folder.makeFolder(u"media/disk/games"_s);
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("roms/demo/game.gb"), QByteArray("one"));
        QCOMPARE(tree->inHome("roms/data/x"), QByteArray("two"));
        QVERIFY(tree->isInHome("roms/data/screenshots"));
    }
    void a_link_in_a_circle_is_left_alone() {
        tree->makeTemplate({{u"roms/game.gb"_s, "one"}});
        tree->folder.makeFolder(u"home"_s);
        QVERIFY(QFile::link(u"roms"_s, tree->folder.path(u"home/roms"_s)));
        QVERIFY(tree->layOut().failures.empty());
    }
    void while_a_disk_is_away_nothing_is_done_twice() {
        tree->layOut();
        QVERIFY(QDir(tree->folder.path(u"home/roms"_s)).removeRecursively());
        QVERIFY(QFile::link(u"/nowhere/games"_s, tree->folder.path(u"home/roms"_s)));
        const Handle other = lockedHome();
        QVERIFY(tree->layOut().failures.empty());
    }
    void a_home_that_is_a_file_is_no_folder() {
        tree->folder.write(u"home"_s, "mine");
        const LayOut::Report report = tree->layOut();
        QCOMPARE(report.failures.size(), 1u);
        QCOMPARE(report.failures.front().reason(), RuntimeFailure::Reason::noFolder);
        QCOMPARE(Paths::real(report.failures.front().file()), tree->home());
    }
    void a_folder_that_cannot_be_entered_is_reported_with_the_file() {
        tree->layOut();
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "two"}}, "1.2");
        tree->folder.setMode(u"home/data/lang"_s, 0);
        {
            const OrdinaryUser ordinary;
            const LayOut::Report report = tree->layOut();
            QVERIFY(!report.failures.empty());
            QCOMPARE(Paths::real(report.failures.front().file()), tree->home() + "/data/lang/lang_eng.tvl");
        }
        tree->folder.setMode(u"home/data/lang"_s, 0755);
    }
    // Without its record a folder would look as if nothing had been laid out: what was deleted would come
    // back.
    void a_record_that_cannot_be_read_stops_the_lay_out() {
        tree->layOut();
        QVERIFY(QFile::remove(tree->folder.path(u"home/emuladores/mgba.sh"_s)));
        QVERIFY(QFile::remove(tree->folder.path(u"home/data/.laid-out"_s)));
        tree->folder.makeFolder(u"home/data/.laid-out"_s);
        QCOMPARE(tree->layOut().failures.size(), 1u);
        QVERIFY(!tree->isInHome("emuladores/mgba.sh"));
    }
    void leftovers_of_a_killed_run_are_swept_in_all_folders_of_the_tree() {
        tree->layOut();
        for (const char* name : {"data/lang/.torvane-abc123", "emuladores/.torvane-abc123"}) {
            tree->writeInHome(name, "half");
        }
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "two"}, {u"emuladores/mgba.sh"_s, "#!2"}}, "1.2");
        tree->layOut();
        sweepHome(Paths::spelled(tree->home()));
        QCOMPARE(hiddenInHome(), QStringList());
    }
    // The program finds a folder in whatever case; an empty twin would hide it.
    void a_folder_that_the_user_renamed_in_its_case_is_still_the_folder() {
        tree->layOut();
        QVERIFY(
            QDir().rename(tree->folder.path(u"home/data/lang"_s), tree->folder.path(u"home/data/Lang"_s)));
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "two"}, {u"data/lang/lang_new.tvl"_s, "new"}},
                           "1.2");
        tree->layOut();
        QVERIFY(!tree->isInHome("data/lang"));
        QCOMPARE(tree->inHome("data/Lang/lang_eng.tvl"), QByteArray("two"));
        QCOMPARE(tree->inHome("data/Lang/lang_new.tvl"), QByteArray("new"));
    }
    void nothing_is_put_over_a_link_or_a_folder() {
        tree->folder.makeFolder(u"home/emuladores/mgba.sh"_s);
        tree->folder.makeFolder(u"home/data/lang"_s);
        QVERIFY(QFile::link(u"nowhere"_s, tree->folder.path(u"home/data/lang/lang_eng.tvl"_s)));
        const LayOut::Report report = tree->layOut();
        QCOMPARE(report.kept, 2);
        QVERIFY(!tree->isInHome("data/lang/nowhere"));
    }

    void a_full_disk_is_reported_and_the_next_start_completes_the_rest() {
        tree->makeTemplate({{u"data/a"_s, "small"}, {u"data/b"_s, QByteArray(50'000, 'b')}});
        {
            const FullDisk full(10'000);
            const LayOut::Report report = tree->layOut();
            QCOMPARE(report.failures.size(), 1u);
            QCOMPARE(report.failures.front().number(), RuntimeFailure::diskFull);
        }
        QCOMPARE(tree->inHome("data/a"), QByteArray("small"));
        QVERIFY(!tree->isInHome("data/b"));
        QCOMPARE(hiddenInHome(), QStringList());
        QVERIFY(tree->layOut().failures.empty());
        QCOMPARE(tree->inHome("data/b").size(), 50'000);
    }
    void a_full_disk_leaves_the_old_file_in_an_update() {
        tree->makeTemplate({{u"data/b"_s, "old"}});
        tree->layOut();
        tree->makeTemplate({{u"data/b"_s, QByteArray(50'000, 'b')}}, "1.2");
        {
            const FullDisk full(10'000);
            QCOMPARE(tree->layOut().failures.size(), 1u);
        }
        QCOMPARE(tree->inHome("data/b"), QByteArray("old"));
        tree->layOut();
        QCOMPARE(tree->inHome("data/b").size(), 50'000);
    }
    void more_files_than_one_batch_are_laid_out() {
        QMap<QString, QByteArray> files;
        for (int i = 0; i < 300; ++i) files[u"roms/g%1.gb"_s.arg(i)] = QByteArray::number(i);
        tree->makeTemplate(files);
        QCOMPARE(tree->layOut().created, 300);
        QCOMPARE(tree->inHome("roms/g299.gb"), QByteArray("299"));
    }
    void two_runs_at_once_take_turns() {
        const bool wasDone = runsBehindAnother([] {});
        QVERIFY(!wasDone);
        QCOMPARE(tree->inHome("data/lang/lang_eng.tvl"), QByteArray("one"));
    }
    void a_newer_version_that_comes_first_keeps_its_tree() {
        tree->makeTemplate({{u"data/a"_s, "newer"}}, "1.3");
        const QByteArray record = tree->folder.read(u"share/tree/data/.laid-out"_s);
        tree->makeTemplate({{u"data/a"_s, "old"}});
        tree->layOut();
        tree->makeTemplate({{u"data/a"_s, "middle"}}, "1.2");
        runsBehindAnother([&] {
            tree->writeInHome("data/a", "newer");
            tree->writeInHome("data/.laid-out", record);
        });
        QCOMPARE(tree->inHome("data/a"), QByteArray("newer"));
        QCOMPARE(tree->inHome("data/.laid-out"), record);
    }
    void a_run_does_not_wait_for_ever() {
        const Handle other = lockedHome();
        const LayOut::Report report =
            LayOut(tree->home(), SourceTree::recorded(tree->templateFolder())).run(30ms);
        QCOMPARE(report.failures.size(), 1u);
        QCOMPARE(report.failures.front().reason(), RuntimeFailure::Reason::inUse);
        QVERIFY(!tree->isInHome("data"));
    }
    void without_anything_to_do_nobody_is_waited_for() {
        tree->layOut();
        const Handle other = lockedHome();
        QVERIFY(tree->layOut().failures.empty());
    }
};

TORVANE_TEST(LayOutTest)
#include "LayOutTest.moc"
