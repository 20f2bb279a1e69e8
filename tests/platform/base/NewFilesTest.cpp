// SPDX-License-Identifier: MIT
// Many new files at once: names, modes, what is in the way, and what fails.
#include "platform/base/NewFiles.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

namespace torvane {

class NewFilesTest : public FileFixture {
    Q_OBJECT

    QByteArray real(const char* name) const { return folder->native(name); }

private slots:
    void init() { renewFolder(); }

    void files_get_their_names_only_at_the_end() {
        NewFiles files;
        files.add(real("a"), "one", 0640);
        files.add(real("deep/er/b"), "two", 0755);
        QVERIFY(!QFile::exists(at("a")));
        const auto results = files.finish();
        QCOMPARE(results.size(), 2u);
        QVERIFY(results[0].isPlaced && results[1].isPlaced);
        QCOMPARE(results[1].path, real("deep/er/b"));
        QCOMPARE(read("a"), QByteArray("one"));
        QCOMPARE(modeOf("a"), 0640u);
        QCOMPARE(read("deep/er/b"), QByteArray("two"));
        QCOMPARE(modeOf("deep/er/b"), 0755u);
    }
    void nothing_that_exists_is_replaced() {
        write("a", "mine");
        softLink("nowhere", "b");
        NewFiles files;
        files.add(real("a"), "one", 0644);
        files.add(real("b"), "two", 0644);
        files.add(real("c"), "three", 0644);
        write("c", "mine, meanwhile");
        const auto results = files.finish();
        for (const NewFiles::Result& result : results) QVERIFY(!result.isPlaced && !result.failure);
        QCOMPARE(read("a"), QByteArray("mine"));
        QCOMPARE(read("c"), QByteArray("mine, meanwhile"));
        expectNames({QStringLiteral("a"), QStringLiteral("c")}); // the link leads nowhere and is not listed
    }
    void one_that_fails_does_not_stop_the_others() {
        write("file", "");
        NewFiles files;
        files.add(real("file/a"), "one", 0644);
        files.add(real("b"), "two", 0644);
        const auto results = files.finish();
        QVERIFY(results[0].failure && !results[0].isPlaced);
        QCOMPARE(results[0].failure->file(), NativeText::fromNative(real("file/a")));
        QVERIFY(results[1].isPlaced);
    }
    void a_full_disk_leaves_nothing_behind() {
        NewFiles files;
        {
            const FullDisk full(10);
            files.add(real("a"), QByteArray(100, 'a'), 0644);
        }
        const auto results = files.finish();
        QCOMPARE(results[0].failure->number(), RuntimeFailure::diskFull);
        expectNames({});
    }
    void more_files_than_one_batch_come_in_the_order_in_which_they_were_added() {
        NewFiles files;
        for (int i = 0; i < 300; ++i) files.add(real("f") + QByteArray::number(i), "x", 0644);
        const auto results = files.finish();
        QCOMPARE(results.size(), 300u);
        for (size_t i = 0; i < results.size(); ++i) {
            QVERIFY(results[i].isPlaced);
            QCOMPARE(results[i].path, real("f") + QByteArray::number(i));
        }
        QVERIFY(files.finish().empty());
    }
};

} // namespace torvane

using torvane::NewFilesTest;
TORVANE_APPLESS_TEST(NewFilesTest)
#include "NewFilesTest.moc"
