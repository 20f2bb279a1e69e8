// SPDX-License-Identifier: MIT
// Gathering the files that a folder is laid out from.
#include "home/SourceTree.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class SourceTreeTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    std::vector<RuntimeFailure> failures;

    SourceTree gathered(const QByteArrayList& folders) {
        QByteArrayList paths;
        for (const QByteArray& name : folders) paths.append(folder->native(name.constData()));
        return SourceTree::gathered(paths, "1.1", failures);
    }
    static QByteArrayList pathsOf(const SourceTree& tree) {
        QByteArrayList paths;
        for (const auto& [path, entry] : tree.files) paths.append(path);
        return paths;
    }

private slots:
    void init() {
        failures.clear();
        folder = std::make_unique<TestFolder>();
        folder->write(u"tree/data/a"_s, "one");
    }

    void all_files_are_found_with_size_and_mode() {
        folder->write(u"tree/\u00F1 x/.hidden"_s, "");
        folder->setMode(u"tree/data/a"_s, 0751);
        const SourceTree tree = gathered({"tree"});
        QCOMPARE(pathsOf(tree), (QByteArrayList{"data/a", "\u00F1 x/.hidden"}));
        QCOMPARE(tree.files.at("data/a").size, 3);
        QCOMPARE(tree.files.at("data/a").mode, mode_t(0751));
        QCOMPARE(tree.version, QByteArray("1.1"));
    }
    void links_are_followed() {
        folder->write(u"other/b"_s, "two");
        QVERIFY(QFile::link(folder->path(u"other"_s), folder->path(u"tree/linked"_s)));
        QVERIFY(QFile::link(folder->path(u"other/b"_s), folder->path(u"tree/file"_s)));
        QVERIFY(QFile::link(u"/nowhere"_s, folder->path(u"tree/lost"_s)));
        QCOMPARE(pathsOf(gathered({"tree"})), (QByteArrayList{"data/a", "file", "linked/b"}));
        QVERIFY(failures.empty());
    }
    void the_later_folder_wins() {
        folder->write(u"second/data/a"_s, "longer");
        QCOMPARE(gathered({"tree", "second"}).files.at("data/a").size, 6);
    }
    void the_record_of_a_folder_is_no_source() {
        folder->write(u"tree/data/.laid-out"_s, "");
        folder->write(u"tree/.laid-out"_s, "");
        QCOMPARE(pathsOf(gathered({"tree"})), (QByteArrayList{".laid-out", "data/a"}));
    }
    void a_folder_that_is_missing_is_reported() {
        QCOMPARE(pathsOf(gathered({"nowhere", "tree"})), QByteArrayList{"data/a"});
        QCOMPARE(failures.size(), 1u);
        QVERIFY(failures.front().file().endsWith(u"nowhere"_s));
    }
    void a_file_that_cannot_be_read_is_reported_and_the_others_are_found() {
        folder->write(u"tree/data/closed"_s, "");
        folder->setMode(u"tree/data/closed"_s, 0);
        const OrdinaryUser ordinary;
        QCOMPARE(pathsOf(gathered({"tree"})), QByteArrayList{"data/a"});
        QCOMPARE(failures.size(), 1u);
        QVERIFY(failures.front().file().endsWith(u"closed"_s));
    }
};

TORVANE_TEST(SourceTreeTest)
#include "SourceTreeTest.moc"
