// SPDX-License-Identifier: MIT
// A folder is read without the new files that other programs are still writing.
#include "platform/base/WholeFiles.h"
#include "support/Failing.h"
#include "support/OtherProgram.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <fcntl.h>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
// How far the clock of the machine that holds the files is ahead of ours, in seconds. An executable's own
// function takes precedence over that of the library.
time_t serverIsAhead = 0;
} // namespace

// NOLINTBEGIN: the signature is that of the C library.
extern "C" int fstat(int file, struct stat* info) noexcept {
    const int result = fstatat(file, "", info, AT_EMPTY_PATH);
    if (result == 0) info->st_ctim.tv_sec += serverIsAhead;
    return result;
}
// NOLINTEND

class WholeFilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    const QStringList patterns{u"*.gb;*.zip"_s, u"*.gb;*.cgb;*.zip"_s};
    WholeFiles::Tables shown;

    WholeFiles::Reading read() const { return WholeFiles::read(folder->path(), patterns, shown); }
    static QByteArray namesOf(const FolderNames& names) {
        QByteArrayList list;
        for (int i = 0; i < names.count(); ++i) list.append(names.bytes(i).toByteArray());
        return list.join(' ');
    }
    std::unique_ptr<OtherProgram> writer(const QByteArray& name) const {
        return std::make_unique<OtherProgram>(
            [&] { (void)open(folder->native(name).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644); });
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        for (const char* name : {"a.gb", "c.cgb", "d.zip"}) folder->writeNative(name, "x");
        shown = FolderNames::read(folder->path(), patterns);
    }
    void cleanup() {
        serverIsAhead = 0;
        folder.reset();
    }

    void an_unchanged_folder_gives_the_tables_that_are_shown() {
        folder->write(u"notes.txt"_s, "x");
        folder->write(u"a.gb"_s, "other bytes");
        QVERIFY(read().tables == shown);
        QVERIFY(read().isComplete);
    }
    void files_that_come_and_go_are_seen() {
        QVERIFY(QFile::remove(folder->path(u"a.gb"_s)));
        folder->writeNative("n\xffw.gb", "x");
        const auto reading = read();
        QCOMPARE(namesOf(*reading.tables[0]), QByteArray("d.zip n\xffw.gb"));
        QCOMPARE(namesOf(*reading.tables[1]), QByteArray("c.cgb d.zip n\xffw.gb"));
    }
    void a_table_that_did_not_change_stays_the_one_that_is_shown() {
        folder->write(u"b.cgb"_s, "x");
        const auto reading = read();
        QVERIFY(reading.tables[0] == shown[0]);
        QCOMPARE(namesOf(*reading.tables[1]), QByteArray("a.gb b.cgb c.cgb d.zip"));
    }
    void a_new_file_counts_once_its_writer_has_closed_it() {
        const auto copying = writer("b.gb");
        folder->write(u"e.gb"_s, "x");
        const auto reading = read();
        QCOMPARE(namesOf(*reading.tables[0]), QByteArray("a.gb d.zip e.gb"));
        QVERIFY(reading.isComplete); // closing it is a change
        copying->end();
        QCOMPARE(namesOf(*read().tables[0]), QByteArray("a.gb b.gb d.zip e.gb"));
    }
    void a_listed_file_stays_listed_while_it_is_written() {
        const auto changing = writer("a.gb");
        QVERIFY(read().tables == shown);
        folder->write(u"b.gb"_s, "x");
        QCOMPARE(namesOf(*read().tables[0]), QByteArray("a.gb b.gb d.zip"));
    }
    void a_file_that_cannot_be_opened_counts() {
        folder->write(u"b.gb"_s, "x");
        folder->setMode(u"b.gb"_s, 0);
        const OrdinaryUser user;
        QCOMPARE(namesOf(*read().tables[0]), QByteArray("a.gb b.gb d.zip"));
    }
    void without_leases_a_file_counts_once_it_has_rested() {
        if (geteuid() != 0) QSKIP("only on a file of another user no lease can be had");
        folder->write(u"b.gb"_s, "x");
        const OrdinaryUser user;
        QCOMPARE(namesOf(*read().tables[0]), QByteArray("a.gb d.zip"));
        QVERIFY(!read().isComplete);
        QTest::qWait(static_cast<int>(WholeFiles::restTime.count()) + 50);
        QCOMPARE(namesOf(*read().tables[0]), QByteArray("a.gb b.gb d.zip"));
        QVERIFY(read().isComplete);
    }
    void without_leases_a_file_whose_time_is_yet_to_come_counts() {
        if (geteuid() != 0) QSKIP("only on a file of another user no lease can be had");
        folder->write(u"b.gb"_s, "x");
        const OrdinaryUser user;
        serverIsAhead = 3600;
        QCOMPARE(namesOf(*read().tables[0]), QByteArray("a.gb b.gb d.zip"));
        QVERIFY(read().isComplete);
    }
    void a_missing_folder_has_no_files() {
        folder.reset();
        shown = WholeFiles::read(u"/nowhere"_s, patterns, shown).tables;
        QCOMPARE(shown[0]->count(), 0);
    }
};

TORVANE_APPLESS_TEST(WholeFilesTest)
#include "WholeFilesTest.moc"
