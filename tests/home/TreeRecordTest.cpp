// SPDX-License-Identifier: MIT
// The record of what was laid out, as bytes in a file.
#include "home/TreeRecord.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class TreeRecordTest : public QObject {
    Q_OBJECT

    const QByteArray a = QByteArray(64, 'a');
    const QByteArray b = QByteArray(64, 'b');

    static TreeRecord read(const QByteArray& bytes) {
        const TestFolder folder;
        folder.write(u"data/.laid-out"_s, bytes);
        return TreeRecord::of(folder.path().toUtf8());
    }

private slots:
    void what_is_stored_is_read_again() {
        const TestFolder folder;
        folder.makeFolder(u"data"_s);
        TreeRecord record;
        record.version = "1.10";
        record.files["data/two\nlines \xFF"] = {a, b, 70'000, 0755};
        record.files["never"] = {{}, b, 3, 0640};
        record.store(folder.path().toUtf8());
        const TreeRecord again = TreeRecord::of(folder.path().toUtf8());
        QCOMPARE(again.version, QByteArray("1.10"));
        QCOMPARE(again.files.size(), 2u);
        const LaidFile& file = again.files.at("data/two\nlines \xFF");
        QCOMPARE(file.laid, a);
        QCOMPARE(file.sum, b);
        QCOMPARE(file.size, 70'000);
        QCOMPARE(file.mode, mode_t(0755));
        QVERIFY(again.files.at("never").laid.isEmpty());
    }
    // The build's first program for this wrote more into the third field.
    void an_older_record_is_understood() {
        const TreeRecord record = read(a + ' ' + b + " 12:1763.25:99:64769:755 ./x y" + '\0');
        QCOMPARE(record.files.at("x y").laid, a);
        QCOMPARE(record.files.at("x y").size, 12);
        QCOMPARE(record.files.at("x y").mode, mode_t(0755));
    }
    void a_folder_without_a_record_has_an_empty_one() {
        const TestFolder folder;
        QVERIFY(TreeRecord::of(folder.path().toUtf8()).files.empty());
        QVERIFY(TreeRecord::of(folder.path().toUtf8() + "/nowhere").files.empty());
    }
    void a_record_that_cannot_be_read_is_a_failure() {
        const TestFolder folder;
        folder.makeFolder(u"data/.laid-out"_s);
        QVERIFY(failureOf([&] { TreeRecord::of(folder.path().toUtf8()); }));
    }
    void a_record_of_16_mebibytes_is_read_and_no_larger_one() {
        const TestFolder folder;
        const QString file = folder.write(u"data/.laid-out"_s, a + ' ' + b + " 1:644 ./x" + '\0');
        QVERIFY(QFile::resize(file, 16 << 20));
        QCOMPARE(TreeRecord::of(folder.path().toUtf8()).files.size(), 1u);
        QVERIFY(QFile::resize(file, (16 << 20) + 1));
        QVERIFY(failureOf([&] { TreeRecord::of(folder.path().toUtf8()); }));
    }
    void a_folder_that_is_a_file_has_an_empty_record() {
        const TestFolder folder;
        folder.write(u"data"_s, "");
        QVERIFY(TreeRecord::of(folder.path().toUtf8()).files.empty());
    }
    void a_mode_has_twelve_bits() {
        QCOMPARE(read(a + ' ' + b + " 1:100755 ./x" + '\0').files.at("x").mode, mode_t(0755));
    }
    void a_record_that_is_stored_already_is_not_written_again() {
        const TestFolder folder;
        TreeRecord record;
        record.version = "1.1";
        folder.makeFolder(u"data"_s);
        record.store(folder.path().toUtf8());
        struct stat before {};
        struct stat after {};
        stat(folder.native("data/.laid-out").constData(), &before);
        record.store(folder.path().toUtf8());
        stat(folder.native("data/.laid-out").constData(), &after);
        QCOMPARE(after.st_ino, before.st_ino);
    }
    void what_cannot_be_understood_is_left_out_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("hello\0world", 11);
        QTest::newRow("cut") << a + ' ' + b;
        QTest::newRow("no path") << a + ' ' + b + " 1:644 ./" + '\0';
        QTest::newRow("absolute path") << a + ' ' + b + " 1:644 /etc/passwd" + '\0';
        QTest::newRow("path that leads out") << a + ' ' + b + " 1:644 ./../x" + '\0';
        QTest::newRow("path that leads out later") << a + ' ' + b + " 1:644 ./a/../../x" + '\0';
        QTest::newRow("no checksum") << a + ' ' + QByteArray(64, 'x') + " 1:644 ./x" + '\0';
        QTest::newRow("no hexadecimal digits") << a + ' ' + QByteArray(64, 'g') + " 1:644 ./x" + '\0';
        QTest::newRow("zeros") << QByteArray(4096, '\0');
    }
    void what_cannot_be_understood_is_left_out() {
        QFETCH(QByteArray, bytes);
        QVERIFY(read(bytes).files.empty());
    }
};

TORVANE_TEST(TreeRecordTest)
#include "TreeRecordTest.moc"
