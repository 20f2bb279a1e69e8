// SPDX-License-Identifier: MIT
// Many files get new ends together: each is changed or left as it was, whatever becomes of the others.
#include "platform/base/EndChanges.h"
#include "platform/base/Paths.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
const QByteArray image(20000, 'i');
const QByteArray oldEnd = "the old end";
} // namespace

class EndChangesTest : public FileFixture {
    Q_OBJECT

    static EndChanges::Decide decideOn(const QByteArray& end) {
        return [end](const Handle&) { return EndChanges::End{image.size(), end}; };
    }
    static QByteArray nameOf(int index) { return QByteArray::number(index) + ".gb"; }
    void makeGames(int count) const {
        for (int i = 0; i < count; ++i) write(nameOf(i).constData(), image + oldEnd);
    }
    quint64 inodeOf(const char* name) const {
        struct stat info {};
        return stat(folder->native(name).constData(), &info) == 0 ? info.st_ino : 0;
    }
    int notes() const {
        int count = 0;
        for (const QString& name : folder->entries()) count += TailNote::isName(name.toLatin1()) ? 1 : 0;
        return count;
    }

private slots:
    void init() { renewFolder(); }

    void all_files_get_their_new_ends_in_place_data() {
        QTest::addColumn<int>("count");
        for (const int count : {1, 2, 8, 9, 127, 128, 129, 300}) QTest::addRow("%d", count) << count;
    }
    void all_files_get_their_new_ends_in_place() {
        QFETCH(int, count);
        makeGames(count);
        const quint64 inode = inodeOf("0.gb");
        EndChanges changes;
        for (int i = 0; i < count; ++i) changes.add(at(nameOf(i).constData()), decideOn("end " + nameOf(i)));
        const auto results = changes.finish();
        QCOMPARE(results.size(), static_cast<size_t>(count));
        for (int i = 0; i < count; ++i) {
            const auto& result = results[static_cast<size_t>(i)];
            QVERIFY(result.isDone && !result.failure);
            QCOMPARE(result.path, at(nameOf(i).constData()));
            QCOMPARE(result.change.start, image.size());
            QCOMPARE(result.change.before, oldEnd);
            QCOMPARE(result.change.after, "end " + nameOf(i));
            QCOMPARE(read(nameOf(i).constData()), image + "end " + nameOf(i));
        }
        QCOMPARE(inodeOf("0.gb"), inode);
        QCOMPARE(folder->entries().size(), count);
        QVERIFY(changes.finish().empty());
    }
    void files_in_several_folders_have_a_note_each_data() {
        QTest::addColumn<int>("count");
        QTest::newRow("synced one by one") << 2;
        QTest::newRow("synced together") << 6;
    }
    void files_in_several_folders_have_a_note_each() {
        QFETCH(int, count);
        EndChanges changes;
        for (int i = 0; i < count; ++i) {
            for (const char* sub : {"one/", "two/"}) {
                const QByteArray name = sub + nameOf(i);
                write(name.constData(), image + oldEnd);
                changes.add(at(name.constData()), decideOn(name));
            }
        }
        for (const auto& result : changes.finish()) QVERIFY(result.isDone);
        for (int i = 0; i < count; ++i) {
            QCOMPARE(read(("one/" + nameOf(i)).constData()), image + "one/" + nameOf(i));
            QCOMPARE(read(("two/" + nameOf(i)).constData()), image + "two/" + nameOf(i));
        }
        QCOMPARE(folder->entries(QStringLiteral("one")).size(), count);
        QCOMPARE(folder->entries(QStringLiteral("two")).size(), count);
    }
    void a_file_that_can_not_be_changed_does_not_stop_the_others() {
        makeGames(5);
        setMode(".", 0777);
        for (int i = 0; i < 5; ++i) setMode(nameOf(i).constData(), i == 1 ? 0444 : 0666);
        EndChanges changes;
        EndChanges::Results results;
        {
            const OrdinaryUser user;
            for (int i = 0; i < 5; ++i) changes.add(at(nameOf(i).constData()), decideOn("new"));
            changes.add(at("gone.gb"), decideOn("new"));
            changes.add(at("."), decideOn("new"));
            results = changes.finish();
        }
        QList<int> done;
        for (size_t i = 0; i < results.size(); ++i) {
            if (results[i].isDone) done << static_cast<int>(i);
            QCOMPARE(results[i].isDone, !results[i].failure.has_value());
        }
        QCOMPARE(done, (QList<int>{0, 2, 3, 4}));
        QCOMPARE(read("1.gb"), image + oldEnd);
        QCOMPARE(read("4.gb"), image + "new");
        QCOMPARE(results[1].failure->file(), at("1.gb"));
        QCOMPARE(results[5].failure->number(), RuntimeFailure::fileNotFound);
    }
    void a_file_that_is_open_for_writing_is_refused_and_the_others_are_changed() {
        makeGames(3);
        QFile writer(at("1.gb"));
        QVERIFY(writer.open(QIODevice::ReadWrite));
        EndChanges changes;
        for (int i = 0; i < 3; ++i) changes.add(at(nameOf(i).constData()), decideOn("new"));
        const auto results = changes.finish();
        QVERIFY(results[0].isDone && !results[1].isDone && results[2].isDone);
        QCOMPARE(results[1].failure->number(), RuntimeFailure::permissionDenied);
        QCOMPARE(read("1.gb"), image + oldEnd);
    }
    void a_file_that_is_read_or_has_a_second_link_is_replaced() {
        makeGames(3);
        QFile reader(at("1.gb"));
        QVERIFY(reader.open(QIODevice::ReadOnly));
        QCOMPARE(link(folder->native("2.gb").constData(), folder->native("link.gb").constData()), 0);
        EndChanges changes;
        for (int i = 0; i < 3; ++i) changes.add(at(nameOf(i).constData()), decideOn("new"));
        for (const auto& result : changes.finish()) QVERIFY(result.isDone);
        for (int i = 0; i < 3; ++i) QCOMPARE(read(nameOf(i).constData()), image + "new");
        QCOMPARE(reader.readAll(), image + oldEnd);
        QCOMPARE(read("link.gb"), image + oldEnd);
    }
    void a_file_may_be_added_again_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("itself") << QByteArray("0.gb");
        QTest::newRow("through a link") << QByteArray("soft.gb");
    }
    void a_file_may_be_added_again() {
        QFETCH(QByteArray, name);
        makeGames(2);
        softLink("0.gb", "soft.gb");
        EndChanges changes;
        changes.add(at("0.gb"), decideOn("first"));
        changes.add(at("1.gb"), decideOn("other"));
        changes.add(at(name.constData()), decideOn("second"));
        const auto results = changes.finish();
        for (const auto& result : results) QVERIFY(result.isDone);
        QCOMPARE(results[2].change.before, QByteArray("first"));
        QCOMPARE(read("0.gb"), image + "second");
        QCOMPARE(read("1.gb"), image + "other");
    }
    void a_file_that_is_to_stay_or_whose_decision_fails_is_left_alone() {
        makeGames(3);
        EndChanges changes;
        changes.add(at("0.gb"), [](const Handle&) { return std::nullopt; });
        changes.add(at("1.gb"), [](const Handle&) -> std::optional<EndChanges::End> {
            throw RuntimeFailure(RuntimeFailure::subscript);
        });
        changes.add(at("2.gb"), decideOn("new"));
        const auto results = changes.finish();
        QVERIFY(!results[0].isDone && !results[0].failure);
        QCOMPARE(results[1].failure->number(), RuntimeFailure::subscript);
        QVERIFY(results[2].isDone);
        QCOMPARE(read("0.gb"), image + oldEnd);
        QCOMPARE(read("1.gb"), image + oldEnd);
    }
    void an_end_of_more_than_64_kib_is_refused_data() {
        QTest::addColumn<qsizetype>("kept");
        QTest::addColumn<qsizetype>("size");
        QTest::newRow("new") << qsizetype(100000) << qsizetype((64 << 10) + 1);
        QTest::newRow("old") << qsizetype(100000 - (64 << 10) - 1) << qsizetype(10);
    }
    void an_end_of_more_than_64_kib_is_refused() {
        QFETCH(qsizetype, kept);
        QFETCH(qsizetype, size);
        const QByteArray large(100000, 'l');
        write("0.gb", large);
        EndChanges changes;
        changes.add(at("0.gb"), [&](const Handle&) { return EndChanges::End{kept, QByteArray(size, 'n')}; });
        QCOMPARE(changes.finish()[0].failure->number(), RuntimeFailure::invalidCall);
        QCOMPARE(read("0.gb"), large);
    }
    void the_changes_are_announced_before_anything_is_written() {
        makeGames(130);
        QFile reader(at("5.gb"));
        QVERIFY(reader.open(QIODevice::ReadOnly));
        QList<size_t> counts;
        EndChanges changes([&](const EndChanges::Results& next) {
            counts << next.size();
            for (const auto& one : next) {
                QCOMPARE(QFileInfo(one.path).size(), image.size() + oldEnd.size());
                QCOMPARE(one.change.before, oldEnd);
                QCOMPARE(one.change.after, QByteArray("new"));
            }
        });
        for (int i = 0; i < 130; ++i) changes.add(at(nameOf(i).constData()), decideOn("new"));
        changes.finish();
        QCOMPARE(counts, (QList<size_t>{1, 127, 2}));
    }
    void if_the_announcement_fails_nothing_is_changed() {
        makeGames(10);
        EndChanges changes(
            [](const EndChanges::Results&) { throw RuntimeFailure(RuntimeFailure::diskFull); });
        for (int i = 0; i < 10; ++i) changes.add(at(nameOf(i).constData()), decideOn("new"));
        for (const auto& result : changes.finish()) {
            QVERIFY(!result.isDone);
            QCOMPARE(result.failure->number(), RuntimeFailure::diskFull);
        }
        for (int i = 0; i < 10; ++i) QCOMPARE(read(nameOf(i).constData()), image + oldEnd);
        QCOMPARE(folder->entries().size(), 10);
    }
    void what_does_not_fit_on_the_disk_gets_its_old_end_back() {
        makeGames(12);
        EndChanges::Results results;
        EndChanges changes;
        {
            const FullDisk full(static_cast<rlim_t>(image.size() + 500));
            for (int i = 0; i < 12; ++i) {
                changes.add(at(nameOf(i).constData()), decideOn(QByteArray(i % 2 == 0 ? 400 : 600, 'n')));
            }
            results = changes.finish();
        }
        for (int i = 0; i < 12; ++i) {
            const bool fits = i % 2 == 0;
            QCOMPARE(results[static_cast<size_t>(i)].isDone, fits);
            QCOMPARE(read(nameOf(i).constData()), image + (fits ? QByteArray(400, 'n') : oldEnd));
        }
        QCOMPARE(folder->entries().size(), 12);
    }
    void each_changed_file_is_handed_on_afterwards() {
        makeGames(3);
        QByteArrayList seen;
        EndChanges changes({}, [&](const Handle& file, const TailChange& change) {
            seen << allBytesOf(file).sliced(change.start);
        });
        for (int i = 0; i < 3; ++i) changes.add(at(nameOf(i).constData()), decideOn(nameOf(i)));
        changes.finish();
        QCOMPARE(seen, (QByteArrayList{"0.gb", "1.gb", "2.gb"}));
        QCOMPARE(notes(), 0);
    }
};

TORVANE_APPLESS_TEST(EndChangesTest)
#include "EndChangesTest.moc"
