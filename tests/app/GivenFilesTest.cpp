// SPDX-License-Identifier: MIT
// Files of a command line become absolute paths; what is no file or folder is named.
#include "app/GivenFiles.h"
#include "app/StartCall.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class GivenFilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    QByteArray before;

private slots:
    void init() {
        before = QFile::encodeName(QDir::currentPath());
        folder = std::make_unique<TestFolder>();
        QVERIFY(QDir::setCurrent(folder->path()));
    }
    void cleanup() {
        QVERIFY(chdir(before.constData()) == 0);
        folder.reset();
    }

    void a_relative_name_is_meant_from_the_working_folder() {
        folder->write(u"sub/a.gb"_s, "x");
        folder->writeNative("b\xFF.gb", "x");
        const QByteArray path = QFile::encodeName(QFileInfo(folder->path()).canonicalFilePath());
        const GivenFiles files = GivenFiles::of({"sub/a.gb", "./b\xFF.gb", "sub//", "."});
        const QByteArrayList expected{path + "/sub/a.gb", path + "/./b\xFF.gb", path + "/sub", path + "/."};
        QCOMPARE(files.paths, expected);
        QCOMPARE(files.faults, QByteArrayList());
    }
    void an_absolute_name_stays_as_it_is() {
        const QByteArray path = QFile::encodeName(folder->write(u"a.gb"_s, "x"));
        QCOMPARE(GivenFiles::of({path, "/"}).paths, (QByteArrayList{path, "/"}));
    }
    void a_thousand_names_of_any_bytes_keep_their_order() {
        QByteArrayList names;
        for (int i = 0; i < 1000; ++i) names.append("-\xFF\n%" + QByteArray::number(i) + ".gb");
        for (const QByteArray& name : names) folder->writeNative(name, "x");
        const QByteArray path = QFile::encodeName(QFileInfo(folder->path()).canonicalFilePath());
        const GivenFiles files = GivenFiles::of(names);
        QCOMPARE(files.faults, QByteArrayList());
        for (QByteArray& name : names) name.prepend(path + '/');
        QCOMPARE(files.paths, names);
    }
    void a_link_counts_as_what_it_leads_to() {
        folder->write(u"a.gb"_s, "x");
        QCOMPARE(symlink("a.gb", "link.gb"), 0);
        QCOMPARE(symlink("/dev/null", "null.gb"), 0);
        const GivenFiles files = GivenFiles::of({"link.gb", "null.gb"});
        QCOMPARE(files.paths.size(), 1);
        QVERIFY(files.paths[0].endsWith("/link.gb"));
        QCOMPARE(files.faults, QByteArrayList{"null.gb: Neither a file nor a folder"});
    }
    void what_is_no_file_is_named_and_the_others_are_kept() {
        folder->write(u"a.gb"_s, "x");
        QCOMPARE(mkfifo("pipe.gb", 0600), 0);
        QCOMPARE(symlink("circle.gb", "circle.gb"), 0);
        const GivenFiles files =
            GivenFiles::of({"\x1B[no\n.gb", "pipe.gb", "circle.gb", "/dev/null", "a.gb"});
        QCOMPARE(files.paths.size(), 1);
        QVERIFY(files.paths[0].endsWith("/a.gb"));
        const QByteArrayList expected{
            "?[no?.gb: No such file or directory", "pipe.gb: Neither a file nor a folder",
            "circle.gb: Too many levels of symbolic links", "/dev/null: Neither a file nor a folder"};
        QCOMPARE(files.faults, expected);
        QByteArrayList names;
        for (const QByteArray& path : files.faulty) {
            QVERIFY(path.startsWith('/'));
            names.append(path.mid(path.lastIndexOf('/') + 1));
        }
        QCOMPARE(names, (QByteArrayList{"\x1B[no\n.gb", "pipe.gb", "circle.gb", "null"}));
    }
    void a_deleted_working_folder_leaves_absolute_names() {
        const QByteArray path = QFile::encodeName(folder->write(u"a.gb"_s, "x"));
        folder->makeFolder(u"gone"_s);
        QVERIFY(chdir("gone") == 0 && rmdir("../gone") == 0);
        const GivenFiles files = GivenFiles::of({"a.gb", path});
        QCOMPARE(files.paths, QByteArrayList{path});
        QCOMPARE(files.faults, QByteArrayList{"a.gb: No such file or directory"});
    }

    // As a message to the first start

    void a_call_survives_its_message() {
        const StartCall call{"id", "token", {"/a", "/b\xFF\n c", "/d\\e"}};
        const auto read = StartCall::unpacked(call.packed());
        QVERIFY(read.has_value());
        QCOMPARE(read->startupId, call.startupId);
        QCOMPARE(read->activationToken, call.activationToken);
        QCOMPARE(read->files, call.files);
        QCOMPARE(StartCall::unpacked(StartCall().packed())->files, QByteArrayList());
    }
    void the_call_of_a_start_has_what_the_desktop_has_said_of_it() {
        qputenv("DESKTOP_STARTUP_ID", "launcher_TIME1");
        qputenv("XDG_ACTIVATION_TOKEN", "token");
        const StartCall call = StartCall::ofThisProcess({"/a"});
        qunsetenv("DESKTOP_STARTUP_ID");
        qunsetenv("XDG_ACTIVATION_TOKEN");
        QCOMPARE(call.startupId, QByteArray("launcher_TIME1"));
        QCOMPARE(call.activationToken, QByteArray("token"));
        QCOMPARE(call.files, QByteArrayList{"/a"});
        const StartCall silent = StartCall::ofThisProcess({});
        QVERIFY(silent.startupId.isEmpty() && silent.activationToken.isEmpty());
    }
    void other_messages_are_no_call_data() {
        QTest::addColumn<QByteArray>("message");
        const QByteArray sound = StartCall{"id", "token", {"/a"}}.packed();
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("a zero") << QByteArray(1, '\0');
        QTest::newRow("cut") << sound.chopped(1);
        QTest::newRow("a later version") << QByteArray(sound).replace("start-1", "start-2");
        QTest::newRow("too few items") << QByteArray("torvane-start-1\0id\0", 19);
        QTest::newRow("a relative path") << StartCall{"", "", {"a"}}.packed();
        QTest::newRow("an empty path") << StartCall{"", "", {""}}.packed();
    }
    void other_messages_are_no_call() {
        QFETCH(QByteArray, message);
        QVERIFY(!StartCall::unpacked(message));
    }
};

TORVANE_APPLESS_TEST(GivenFilesTest)
#include "GivenFilesTest.moc"
