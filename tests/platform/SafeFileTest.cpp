// SPDX-License-Identifier: MIT
// Replacing, copying and going back: at any moment, after any failure, the file is one of its whole states.
#include "platform/base/SafeFile.h"
#include "support/Failing.h"
#include "support/TestFolder.h"

#include <random>
#include <sys/wait.h>

using namespace torvane;

namespace {
std::optional<int> number(RuntimeFailure::Number value) { return static_cast<int>(value); }
} // namespace

class SafeFileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    QString at(const char* name) const { return folder->path(QString::fromUtf8(name)); }
    QByteArray read(const char* name) const { return folder->read(QString::fromUtf8(name)); }
    QString write(const char* name, const QByteArray& bytes) const {
        return folder->write(QString::fromUtf8(name), bytes);
    }
    struct stat infoOf(const char* name) const {
        struct stat info {};
        if (lstat(folder->native(name).constData(), &info) != 0) qFatal("no such file");
        return info;
    }
    void link(const char* target, const char* name) const {
        QCOMPARE(symlink(target, folder->native(name).constData()), 0);
    }
    std::optional<int> replaceFailure(const char* name) const {
        return failureOf([&] { SafeFile::replace(at(name), "new"); });
    }
    void expectNames(const QStringList& names) const { QCOMPARE(folder->entries(), names); }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void replacing_changes_the_whole_content_and_leaves_no_other_file() {
        const QString path = write("a.gb", "former content");
        SafeFile::replace(path, QByteArray("n\0\r\n", 4));
        QCOMPARE(read("a.gb"), QByteArray("n\0\r\n", 4));
        SafeFile::replace(path, QByteArray());
        QCOMPARE(read("a.gb"), QByteArray());
        expectNames({QStringLiteral("a.gb")});
    }
    void a_missing_file_is_made_with_the_mode_of_the_user_s_mask() {
        const mode_t former = umask(027);
        SafeFile::replace(at("new.gb"), "new");
        umask(former);
        QCOMPARE(read("new.gb"), QByteArray("new"));
        QCOMPARE(infoOf("new.gb").st_mode & 07777, 0640u);
    }
    void mode_and_owner_are_kept_data() {
        QTest::addColumn<uint>("mode");
        for (const uint mode : {0600u, 0644u, 0666u, 0755u, 02755u, 0200u}) {
            QTest::addRow("%o", mode) << mode;
        }
    }
    void mode_and_owner_are_kept() {
        QFETCH(uint, mode);
        const QString path = write("a.gb", "former");
        if (geteuid() == 0) QCOMPARE(chown(folder->native("a.gb").constData(), 65534, 65533), 0);
        folder->setMode(QStringLiteral("a.gb"), mode);
        const struct stat before = infoOf("a.gb");
        SafeFile::replace(path, "new");
        const struct stat after = infoOf("a.gb");
        QCOMPARE(after.st_mode, before.st_mode);
        QCOMPARE(after.st_uid, before.st_uid);
        QCOMPARE(after.st_gid, before.st_gid);
        QVERIFY(after.st_ino != before.st_ino);
    }
    void a_link_stays_and_the_file_that_it_names_is_replaced_data() {
        QTest::addColumn<QByteArray>("target");
        QTest::newRow("relative") << QByteArray("sub/real.gb");
        QTest::newRow("absolute") << QByteArray();
        QTest::newRow("by another link") << QByteArray("sub/second.gb");
    }
    void a_link_stays_and_the_file_that_it_names_is_replaced() {
        QFETCH(QByteArray, target);
        write("sub/real.gb", "former");
        link("real.gb", "sub/second.gb");
        if (target.isEmpty()) target = folder->native("sub/real.gb");
        link(target.constData(), "link.gb");
        SafeFile::replace(at("link.gb"), "new");
        QVERIFY(S_ISLNK(infoOf("link.gb").st_mode));
        QVERIFY(S_ISREG(infoOf("sub/real.gb").st_mode));
        QCOMPARE(read("sub/real.gb"), QByteArray("new"));
        expectNames({QStringLiteral("link.gb"), QStringLiteral("sub")});
    }
    void a_link_to_a_file_that_is_still_to_be_made_stays_too() {
        folder->makeFolder(QStringLiteral("sub"));
        link("sub/later.gb", "link.gb");
        SafeFile::replace(at("link.gb"), "new");
        QVERIFY(S_ISLNK(infoOf("link.gb").st_mode));
        QCOMPARE(read("sub/later.gb"), QByteArray("new"));
    }
    void links_in_a_circle_are_refused_and_stay() {
        link("second", "first");
        link("first", "second");
        QCOMPARE(replaceFailure("first"), number(RuntimeFailure::pathAccess));
        QVERIFY(S_ISLNK(infoOf("first").st_mode));
    }
    void a_second_name_of_the_file_keeps_the_former_content() {
        const QString path = write("a.gb", "former");
        QCOMPARE(::link(folder->native("a.gb").constData(), folder->native("b.gb").constData()), 0);
        SafeFile::replace(path, "new");
        QCOMPARE(read("b.gb"), QByteArray("former"));
    }
    void what_is_no_file_is_refused_at_once_and_stays_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"folder", "pipe", "link to folder", "device"})
            QTest::newRow(name) << QByteArray(name);
    }
    void what_is_no_file_is_refused_at_once_and_stays() {
        QFETCH(QByteArray, name);
        folder->makeFolder(QStringLiteral("folder"));
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0666), 0);
        link("folder", "link to folder");
        link("pipe", "device");
        const mode_t before = infoOf(name.constData()).st_mode;
        const QString source = write("source.gb", "x");
        QCOMPARE(replaceFailure(name.constData()), number(RuntimeFailure::pathAccess));
        QCOMPARE(failureOf([&] { SafeFile::copy(source, at(name.constData())); }),
                 number(RuntimeFailure::pathAccess));
        QCOMPARE(failureOf([&] { SafeFile::copy(at(name.constData()), at("target")); }),
                 number(RuntimeFailure::pathAccess));
        QCOMPARE(infoOf(name.constData()).st_mode, before);
        QVERIFY(S_ISFIFO(infoOf("pipe").st_mode));
        QVERIFY(folder->entries(QStringLiteral("folder")).isEmpty());
        QVERIFY(!QFile::exists(at("target")));
    }
    void a_missing_folder_is_told() {
        QCOMPARE(replaceFailure("gone/a.gb"), number(RuntimeFailure::fileNotFound));
        write("file", "x");
        QCOMPARE(replaceFailure("file/a.gb"), number(RuntimeFailure::pathNotFound));
    }
    void a_full_disk_leaves_the_old_file_and_no_stray_one() {
        const QString path = write("a.gb", QByteArray(500, 'f'));
        const QString big = write("big.gb", QByteArray(5000, 'b'));
        std::optional<int> replacing;
        std::optional<int> copying;
        std::optional<int> making;
        {
            const FullDisk full(1000);
            replacing = failureOf([&] { SafeFile::replace(path, QByteArray(1001, 'n')); });
            copying = failureOf([&] { SafeFile::copy(big, path); });
            making = failureOf([&] { SafeFile::copy(big, at("new.gb")); });
            SafeFile::replace(at("fits.gb"), QByteArray(1000, 'n'));
        }
        QCOMPARE(replacing, number(RuntimeFailure::diskFull));
        QCOMPARE(copying, number(RuntimeFailure::diskFull));
        QCOMPARE(making, number(RuntimeFailure::diskFull));
        QCOMPARE(read("a.gb"), QByteArray(500, 'f'));
        expectNames({QStringLiteral("a.gb"), QStringLiteral("big.gb"), QStringLiteral("fits.gb")});
    }
    void a_read_only_file_is_refused_although_its_folder_could_be_written() {
        const QString path = write("open/a.gb", "former");
        folder->setMode(QStringLiteral("open/a.gb"), 0444);
        folder->setMode(QStringLiteral("open"), 0777);
        {
            const OrdinaryUser user;
            QCOMPARE(replaceFailure("open/a.gb"), number(RuntimeFailure::permissionDenied));
            QCOMPARE(failureOf([&] { SafeFile::copy(path, at("open/b.gb")); }), std::optional<int>());
            QCOMPARE(failureOf([&] { SafeFile::copy(at("open/b.gb"), path); }),
                     number(RuntimeFailure::permissionDenied));
        }
        QCOMPARE(read("open/a.gb"), QByteArray("former"));
    }
    void a_read_only_folder_is_refused() {
        write("shut/a.gb", "former");
        folder->setMode(QStringLiteral("shut/a.gb"), 0666);
        folder->setMode(QStringLiteral("shut"), 0555);
        {
            const OrdinaryUser user;
            QCOMPARE(replaceFailure("shut/a.gb"), number(RuntimeFailure::permissionDenied));
        }
        folder->setMode(QStringLiteral("shut"), 0755);
        QCOMPARE(read("shut/a.gb"), QByteArray("former"));
        QCOMPARE(folder->entries(QStringLiteral("shut")), QStringList{QStringLiteral("a.gb")});
    }
    void a_folder_that_may_be_written_but_not_read_is_no_failure() {
        folder->makeFolder(QStringLiteral("drop"));
        folder->setMode(QStringLiteral("drop"), 0333);
        {
            const OrdinaryUser user;
            QCOMPARE(replaceFailure("drop/a.gb"), std::optional<int>());
        }
        folder->setMode(QStringLiteral("drop"), 0755);
        QCOMPARE(read("drop/a.gb"), QByteArray("new"));
    }
    void names_of_any_bytes_are_replaced() {
        for (const QByteArray& name : {QByteArray("no utf8 \xF1.gb"), QByteArray("back\\slash.gb"),
                                       QByteArray("%s.gb"), QByteArray("\"q\"\n.gb"), QByteArray(255, 'n')}) {
            const QString path = folder->writeNative(name, "former");
            SafeFile::replace(path, "new");
            QVERIFY(S_ISREG(infoOf(name.constData()).st_mode));
            QCOMPARE(infoOf(name.constData()).st_size, 3);
        }
    }
    void a_target_that_differs_in_case_is_the_same_file() {
        write("Game.gb", "former");
        SafeFile::replace(at("GAME.GB"), "new");
        QCOMPARE(read("Game.gb"), QByteArray("new"));
        expectNames({QStringLiteral("Game.gb")});
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
    void a_copy_onto_itself_is_refused_by_whatever_name() {
        const QString source = write("a.gb", "content");
        QCOMPARE(::link(folder->native("a.gb").constData(), folder->native("hard.gb").constData()), 0);
        link("a.gb", "soft.gb");
        for (const char* target : {"a.gb", "A.GB", "./a.gb", "hard.gb", "soft.gb"}) {
            QCOMPARE(failureOf([&] { SafeFile::copy(source, at(target)); }),
                     number(RuntimeFailure::permissionDenied));
        }
        QCOMPARE(read("a.gb"), QByteArray("content"));
        QVERIFY(S_ISLNK(infoOf("soft.gb").st_mode));
    }
    void a_copy_of_a_missing_or_unreadable_file_is_told_and_leaves_the_target() {
        const QString target = write("target.gb", "former");
        QCOMPARE(failureOf([&] { SafeFile::copy(at("gone.gb"), target); }),
                 number(RuntimeFailure::fileNotFound));
        folder->setMode(QStringLiteral("target.gb"), 0666);
        const QString source = write("shut.gb", "secret");
        folder->setMode(QStringLiteral("shut.gb"), 0);
        {
            const OrdinaryUser user;
            QCOMPARE(failureOf([&] { SafeFile::copy(source, target); }),
                     number(RuntimeFailure::permissionDenied));
        }
        QCOMPARE(read("target.gb"), QByteArray("former"));
    }

    void a_restore_point_brings_back_a_replaced_file_and_leaves_no_stray_one() {
        const QString path = write("a.gb", "former");
        const ino_t before = infoOf("a.gb").st_ino;
        {
            SafeFile::RestorePoint point(path);
            SafeFile::replace(path, "new");
            QCOMPARE(folder->entries().size(), 2);
            point.restore();
            QCOMPARE(read("a.gb"), QByteArray("former"));
            QCOMPARE(infoOf("a.gb").st_ino, before);
            point.restore();
        }
        QCOMPARE(read("a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")});
    }
    void a_restore_point_that_is_not_needed_goes_away() {
        const QString path = write("a.gb", "former");
        {
            const SafeFile::RestorePoint point(path);
            // The second name is hidden, so that no list shows it.
            for (const QString& name : folder->entries())
                QVERIFY(name == QStringLiteral("a.gb") || name.startsWith(QLatin1Char('.')));
            SafeFile::replace(path, "new");
        }
        QCOMPARE(read("a.gb"), QByteArray("new"));
        expectNames({QStringLiteral("a.gb")});
    }
    void restoring_a_file_that_was_never_replaced_changes_nothing() {
        const QString path = write("a.gb", "former");
        {
            SafeFile::RestorePoint point(path);
            point.restore();
        }
        QCOMPARE(read("a.gb"), QByteArray("former"));
        expectNames({QStringLiteral("a.gb")});
    }
    void a_restore_point_of_a_link_brings_back_the_file_that_it_names() {
        write("sub/real.gb", "former");
        link("sub/real.gb", "link.gb");
        SafeFile::RestorePoint point(at("link.gb"));
        SafeFile::replace(at("link.gb"), "new");
        point.restore();
        QVERIFY(S_ISLNK(infoOf("link.gb").st_mode));
        QCOMPARE(read("sub/real.gb"), QByteArray("former"));
    }
    void a_restore_point_of_nothing_or_in_a_read_only_folder_does_nothing() {
        SafeFile::RestorePoint nothing(at("gone.gb"));
        nothing.restore();
        expectNames({});
        const QString path = write("shut/a.gb", "former");
        folder->setMode(QStringLiteral("shut"), 0555);
        {
            const OrdinaryUser user;
            SafeFile::RestorePoint point(path);
            point.restore();
        }
        folder->setMode(QStringLiteral("shut"), 0755);
        QCOMPARE(folder->entries(QStringLiteral("shut")), QStringList{QStringLiteral("a.gb")});
    }

    void a_kill_at_any_moment_leaves_one_of_the_whole_states() {
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
            usleep(1000 + random() % 12000);
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
            // What a kill leaves behind never bears a name that a list shows.
            for (const QString& name : folder->entries()) {
                QVERIFY(name == QStringLiteral("game.gb") || name.startsWith(QStringLiteral(".torvane-")));
            }
        }
    }
};

QTEST_APPLESS_MAIN(SafeFileTest)
#include "SafeFileTest.moc"
