// SPDX-License-Identifier: MIT
// The user's runtime folder is used only if nobody else could have made it or can enter it.
#include "platform/base/RuntimeFolder.h"
#include "support/OtherProgram.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class RuntimeFolderTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    static constexpr uid_t nobody = 65534;

    RuntimePlaces places(const QByteArray& runtime) const { return {runtime, folder->native("tmp"), "prog"}; }
    QByteArray madeName() const { return folder->native("tmp/prog-") + QByteArray::number(geteuid()); }
    // The inode of the folder that is used; 0 for none.
    static ino_t used(const RuntimePlaces& places) {
        const auto opened = openRuntimeFolder(places);
        return opened ? infoOf(*opened).st_ino : 0;
    }
    static ino_t inodeOf(const QByteArray& path) {
        struct stat info {};
        return stat(path.constData(), &info) == 0 ? info.st_ino : 0;
    }
    void expectMade(const QByteArray& runtime) const {
        const ino_t inode = used(places(runtime));
        QVERIFY(inode != 0);
        QCOMPARE(inode, inodeOf(madeName()));
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        folder->makeFolder(u"tmp"_s);
        folder->makeFolder(u"run"_s);
        folder->setMode(u"run"_s, 0700);
    }
    void cleanup() { folder.reset(); }

    void the_folder_that_the_desktop_names_is_used() {
        QCOMPARE(used(places(folder->native("run"))), inodeOf(folder->native("run")));
        QCOMPARE(folder->entries(u"tmp"_s), QStringList());
    }
    void a_link_of_the_users_own_to_it_is_followed() {
        QCOMPARE(symlink("run", folder->native("link").constData()), 0);
        QCOMPARE(used(places(folder->native("link"))), inodeOf(folder->native("run")));
    }
    void without_a_usable_one_a_private_one_is_made_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("relative") << QByteArray("run");
        QTest::newRow("missing") << QByteArray("/nowhere/at/all");
        QTest::newRow("a file") << QByteArray("FOLDER/file");
        QTest::newRow("a circle") << QByteArray("FOLDER/circle");
        QTest::newRow("open to the group") << QByteArray("FOLDER/group");
        QTest::newRow("open to others") << QByteArray("FOLDER/others");
        QTest::newRow("writable by all") << QByteArray("FOLDER/all");
    }
    void without_a_usable_one_a_private_one_is_made() {
        QFETCH(QByteArray, name);
        folder->write(u"file"_s, "x");
        folder->setMode(u"file"_s, 0600);
        QCOMPARE(symlink("circle", folder->native("circle").constData()), 0);
        QCOMPARE(mkdir(folder->native("group").constData(), 0710), 0);
        folder->makeFolder(u"others"_s);
        folder->setMode(u"others"_s, 0701);
        folder->makeFolder(u"all"_s);
        folder->setMode(u"all"_s, 01777);
        expectMade(name.replace("FOLDER", folder->native(".")));
        struct stat info {};
        QCOMPARE(stat(madeName().constData(), &info), 0);
        QCOMPARE(info.st_mode & 07777, mode_t{0700});
        expectMade(name);
    }
    void a_relative_path_is_refused_even_if_it_leads_to_a_private_folder() {
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder->path()));
        expectMade("run");
        QCOMPARE(used({"", "tmp", "prog"}), ino_t{0});
        QVERIFY(QDir::setCurrent(before));
    }
    void a_program_that_is_started_does_not_inherit_it() {
        const auto opened = openRuntimeFolder(places(folder->native("run")));
        QVERIFY(opened.has_value());
        QVERIFY((fcntl(opened->number(), F_GETFD) & FD_CLOEXEC) != 0);
    }
    void a_made_one_of_another_user_is_refused() {
        if (geteuid() != 0) QSKIP("only root can make files of another user");
        QCOMPARE(mkdir(madeName().constData(), 0700), 0);
        QCOMPARE(chown(madeName().constData(), nobody, nobody), 0);
        QCOMPARE(used(places("")), ino_t{0});
    }
    void a_runtime_folder_of_another_user_is_left_alone() {
        if (geteuid() != 0) QSKIP("only root can make files of another user");
        QCOMPARE(chown(folder->native("run").constData(), nobody, nobody), 0);
        expectMade(folder->native("run"));
    }
    void a_made_one_that_others_can_enter_is_refused() {
        QCOMPARE(mkdir(madeName().constData(), 0700), 0);
        QCOMPARE(chmod(madeName().constData(), 0755), 0);
        QCOMPARE(used(places("")), ino_t{0});
    }
    void a_made_one_that_is_a_link_or_a_file_is_refused() {
        QCOMPARE(symlink("../run", madeName().constData()), 0);
        QCOMPARE(used(places("")), ino_t{0});
        QCOMPARE(unlink(madeName().constData()), 0);
        folder->writeNative("tmp/prog-" + QByteArray::number(geteuid()), "x");
        QCOMPARE(chmod(madeName().constData(), 0600), 0);
        QCOMPARE(used(places("")), ino_t{0});
    }
    void without_any_place_there_is_none() {
        QCOMPARE(used({"", folder->native("missing"), "prog"}), ino_t{0});
        QCOMPARE(used({"", "relative", "prog"}), ino_t{0});
    }
    void the_environment_names_the_places() {
        const auto set = [](const char* runtime, const char* temporary) {
            qputenv("XDG_RUNTIME_DIR", runtime);
            qputenv("TMPDIR", temporary);
            return RuntimePlaces::ofEnvironment("prog");
        };
        const QByteArray before = qgetenv("TMPDIR");
        const auto both = set("/r", "/t");
        QCOMPARE((QByteArrayList{both.runtime, both.temporary, both.name}),
                 (QByteArrayList{"/r", "/t", "prog"}));
        QCOMPARE(set("", "").runtime, "/run/user/" + QByteArray::number(geteuid()));
        QCOMPARE(set("r", "").runtime, QByteArray("r"));
        QCOMPARE(set("/r", "").temporary, QByteArray("/tmp"));
        QCOMPARE(set("/r", "t").temporary, QByteArray("/tmp"));
        before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    }
};

TORVANE_APPLESS_TEST(RuntimeFolderTest)
#include "RuntimeFolderTest.moc"
