// SPDX-License-Identifier: MIT
// Replacing and copying: at any moment, after any failure, the file is complete, either old or new.
#include "platform/base/Leftovers.h"
#include "support/FileWays.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

#include <random>

using namespace torvane;

class SafeFileTest : public FileWays {
    Q_OBJECT

private slots:
    void init() { renewFolder(); }

    void replacing_changes_the_whole_content_and_leaves_no_other_file() {
        const QString path = write("a.gb", "former content");
        SafeFile::replace(path, QByteArray("n\0\r\n", 4));
        QCOMPARE(read("a.gb"), QByteArray("n\0\r\n", 4));
        SafeFile::replace(path, QByteArray());
        QCOMPARE(read("a.gb"), QByteArray());
        expectNames({QStringLiteral("a.gb")});
    }
    void a_link_to_a_file_that_does_not_exist_yet_stays_data() {
        QTest::addColumn<Way>("way");
        QTest::newRow("replace") << Way::replace;
        QTest::newRow("copy") << Way::copy;
    }
    void a_link_to_a_file_that_does_not_exist_yet_stays() {
        QFETCH(Way, way);
        write("source", "new");
        folder->makeFolder(QStringLiteral("sub"));
        softLink("sub/later.gb", "link.gb");
        changeBy(way, "link.gb");
        QVERIFY(S_ISLNK(infoOf("link.gb").st_mode));
        QCOMPARE(read("sub/later.gb"), QByteArray("new"));
    }
    void files_with_names_of_any_bytes_are_changed_data() {
        QTest::addColumn<Way>("way");
        QTest::addColumn<QByteArray>("name");
        const QByteArrayList names = {
            "no utf8 \xF1.gb",    "back\\slash.gb",       "%s.gb", "\"q\"\n.gb", " ", "-rf", ".hidden",
            QByteArray(255, 'n'), QByteArray(255, '\xFF')};
        for (qsizetype i = 0; i < names.size(); ++i) {
            QTest::addRow("replace %d", int(i)) << Way::replace << names[i];
            QTest::addRow("copy %d", int(i)) << Way::copy << names[i];
            QTest::addRow("change %d", int(i)) << Way::change << names[i];
            QTest::addRow("append %d", int(i)) << Way::append << names[i];
        }
    }
    void files_with_names_of_any_bytes_are_changed() {
        QFETCH(Way, way);
        QFETCH(QByteArray, name);
        const QString path = folder->writeNative(name, "former");
        write("source", "new");
        changeAt(path, way);
        QVERIFY(S_ISREG(infoOf(name.constData()).st_mode));
        QCOMPARE(infoOf(name.constData()).st_size, changed(way).size());
    }
    void a_name_in_another_case_means_the_same_file() {
        for (const Way way : {Way::replace, Way::change, Way::append}) {
            write("Game.gb", "former");
            changeBy(way, "GAME.GB");
            QCOMPARE(read("Game.gb"), changed(way));
            expectNames({QStringLiteral("Game.gb")});
        }
    }
    void a_copy_has_just_its_name_in_a_folder_of_any_case() {
        write("Folder/Game.gb", "former");
        SafeFile::copy(write("source", "new"), at("folder/GAME.GB"));
        QCOMPARE(read("Folder/Game.gb"), QByteArray("former"));
        QCOMPARE(read("Folder/GAME.GB"), QByteArray("new"));
    }

    void a_copy_has_the_same_bytes_and_replaces_the_target_data() {
        QTest::addColumn<int>("size");
        for (const int size : {0, 1, (1 << 20) - 1, 1 << 20, (1 << 20) + 1, (3 << 20) + 7})
            QTest::addRow("%d", size) << size;
    }
    void a_copy_has_the_same_bytes_and_replaces_the_target() {
        QFETCH(int, size);
        QByteArray bytes(size, '\0');
        std::mt19937 random(3);
        for (char& c : bytes) c = static_cast<char>(random());
        const QString source = write("source.gb", bytes);
        SafeFile::copy(source, at("new.gb"));
        SafeFile::copy(source, write("old.gb", "former"));
        QVERIFY(read("new.gb") == bytes);
        QVERIFY(read("old.gb") == bytes);
        QVERIFY(read("source.gb") == bytes);
        expectNames({QStringLiteral("new.gb"), QStringLiteral("old.gb"), QStringLiteral("source.gb")});
    }
    void a_copy_onto_itself_is_refused_under_any_name() {
        const QString source = write("a.gb", "content");
        hardLink("a.gb", "hard.gb");
        softLink("a.gb", "soft.gb");
        for (const char* target : {"a.gb", "./a.gb", "hard.gb", "soft.gb"}) {
            QCOMPARE(failureOf([&] { SafeFile::copy(source, at(target)); }),
                     number(RuntimeFailure::permissionDenied));
        }
        QCOMPARE(read("a.gb"), QByteArray("content"));
        QVERIFY(S_ISLNK(infoOf("soft.gb").st_mode));
    }
    void a_copy_of_a_missing_or_unreadable_file_is_reported_and_leaves_the_target() {
        const QString target = write("target.gb", "former");
        QCOMPARE(failureOf([&] { SafeFile::copy(at("gone.gb"), target); }),
                 number(RuntimeFailure::fileNotFound));
        setMode("target.gb", 0666);
        const QString source = write("shut.gb", "secret");
        setMode("shut.gb", 0);
        {
            const OrdinaryUser user;
            QCOMPARE(failureOf([&] { SafeFile::copy(source, target); }),
                     number(RuntimeFailure::permissionDenied));
        }
        QCOMPARE(read("target.gb"), QByteArray("former"));
    }

    void a_kill_at_any_moment_leaves_the_old_or_the_new_file() {
        const QString path = write("game.gb", QByteArray(400000, 'a'));
        std::mt19937 random(17);
        for (int round = 0; round < 40; ++round) {
            const pid_t child = fork();
            if (child == 0) {
                for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
                    SafeFile::replace(path, QByteArray(400000 + letter, letter));
                }
            }
            QVERIFY(child > 0);
            usleep(static_cast<useconds_t>(1000 + random() % 12000));
            QCOMPARE(kill(child, SIGKILL), 0);
            int status = 0;
            QCOMPARE(waitpid(child, &status, 0), child);
            QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
            const QByteArray now = read("game.gb");
            QVERIFY(now.size() >= 400000);
            const char letter = now[0];
            const bool isFirst = now.size() == 400000 && letter == 'a';
            QVERIFY(isFirst || now.size() == 400000 + letter);
            QVERIFY(now.count(letter) == now.size());
            // What a kill leaves never has a name that a list shows.
            for (const QString& name : folder->entries()) {
                QVERIFY(name == QStringLiteral("game.gb") || name.startsWith(QStringLiteral(".torvane-")));
            }
        }
        Leftovers::sweep(folder->path());
        expectNames({QStringLiteral("game.gb")});
    }
};

TORVANE_APPLESS_TEST(SafeFileTest)
#include "SafeFileTest.moc"
