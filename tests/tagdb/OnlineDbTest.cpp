// SPDX-License-Identifier: MIT
// The local copy on the disk: written whole or not at all, and read anew each time, whatever lies there.
#include "tagdb/OnlineDb.h"
#include "FilteredRows.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

#include <atomic>
#include <thread>

using namespace torvane;
using namespace Qt::StringLiterals;

class OnlineDbTest : public FileFixture {
    Q_OBJECT

    Globals globals;

    OnlineDb db() const { return OnlineDb(globals); }
    std::shared_ptr<OnlineDbRows> rows() const {
        return db().filtered({}, QDate(2026, 11, 22), u"dd/MM/yy"_s);
    }
    std::optional<int> readFailure() const {
        return failureOf([&] { (void)rows(); });
    }
    std::optional<int> writeFailure(const QByteArray& body) const {
        return failureOf([&] { db().write(body); });
    }
    // Runs some work again and again on another thread until this has read often enough.
    template <typename Work, typename Check>
    void readWhile(const Work& work, const Check& check) const {
        std::atomic<bool> isDone = false;
        std::thread other([&] {
            while (!isDone) work();
        });
        for (int i = 0; i < 60; ++i) check(*rows());
        isDone = true;
        other.join();
    }

private slots:
    void init() {
        renewFolder();
        globals.AppPath = folder->path();
    }

    // Writing
    void the_file_lies_beside_the_executable() {
        QCOMPARE(db().path(), folder->path() + u"\\online_db.dat"_s);
        db().write("x");
        expectNames({u"online_db.dat"_s});
    }
    void the_body_is_written_as_it_came_and_a_line_end_follows() {
        QByteArray body;
        for (int byte = 0; byte < 256; ++byte) body.append(static_cast<char>(byte));
        db().write(body);
        QCOMPARE(read("online_db.dat"), body + "\r\n");
        QCOMPARE(body.size(), 256);
    }
    void an_empty_answer_becomes_one_line_end_and_an_empty_list() {
        db().write({});
        QCOMPARE(read("online_db.dat"), QByteArray("\r\n"));
        QCOMPARE(rows()->count(), 0);
    }
    void an_error_page_becomes_the_file_and_shows_nothing() {
        db().write("<html>\r\n<h1>404 Not Found</h1>\r\n</html>");
        QCOMPARE(read("online_db.dat"), QByteArray("<html>\r\n<h1>404 Not Found</h1>\r\n</html>\r\n"));
        QCOMPARE(rows()->count(), 0);
    }
    void a_new_body_replaces_the_old_one() {
        db().write(lineOf("byn", "a long one that was there before"));
        db().write(lineOf("byn", "new"));
        QCOMPARE(column(*rows(), 0), QStringList{u"new"_s});
        expectNames({u"online_db.dat"_s});
    }
    void a_full_disk_leaves_the_old_file() {
        db().write(lineOf("byn", "old"));
        {
            const FullDisk full(100);
            QCOMPARE(writeFailure(QByteArray(1000, 'x')), number(RuntimeFailure::diskFull));
        }
        QCOMPARE(read("online_db.dat"), lineOf("byn", "old") + "\r\n");
        expectNames({u"online_db.dat"_s});
    }
    void a_folder_that_cannot_be_written_leaves_the_old_file() {
        db().write(lineOf("byn", "old"));
        setMode(".", 0555);
        {
            const OrdinaryUser user;
            QCOMPARE(writeFailure("new"), number(RuntimeFailure::permissionDenied));
        }
        setMode(".", 0755);
        QCOMPARE(read("online_db.dat"), lineOf("byn", "old") + "\r\n");
    }
    void a_read_only_file_stays() {
        db().write(lineOf("byn", "old"));
        setMode("online_db.dat", 0444);
        const OrdinaryUser user;
        QCOMPARE(writeFailure("new"), number(RuntimeFailure::permissionDenied));
        QCOMPARE(read("online_db.dat"), lineOf("byn", "old") + "\r\n");
    }
    void a_folder_or_pipe_of_that_name_stays() {
        folder->makeFolder(u"online_db.dat"_s);
        QCOMPARE(writeFailure("new"), number(RuntimeFailure::pathAccess));
        QVERIFY(QDir(at("online_db.dat")).removeRecursively());
        QCOMPARE(mkfifo(folder->native("online_db.dat").constData(), 0666), 0);
        QCOMPARE(writeFailure("new"), number(RuntimeFailure::pathAccess));
        QVERIFY(S_ISFIFO(infoOf("online_db.dat").st_mode));
    }

    // Reading
    void each_filtering_reads_the_file_anew() {
        write("online_db.dat", lineOf("byn", "one"));
        QCOMPARE(column(*rows(), 0), QStringList{u"one"_s});
        write("online_db.dat", lineOf("byn", "two") + "\r\n" + lineOf("byn", "three"));
        QCOMPARE(column(*rows(), 0), (QStringList{u"two"_s, u"three"_s}));
    }
    void the_filter_and_the_form_of_dates_are_passed_on() {
        write("online_db.dat", lineOf("byn", "a") + "\n" + lineOf("color", "b"));
        OnlineDbFilter filter;
        filter.GB_CL = false;
        filter.date = u"1"_s;
        QCOMPARE(db().filtered(filter, QDate(2003, 2, 2), u"d/M/yy"_s)->count(), 1);
        QCOMPARE(db().filtered(filter, QDate(2003, 2, 3), u"d/M/yy"_s)->count(), 0);
    }
    void a_missing_file_is_reported() {
        QCOMPARE(readFailure(), number(RuntimeFailure::fileNotFound));
        expectNames({});
    }
    void a_failure_names_the_file() {
        try {
            (void)rows();
            QFAIL("no failure");
        } catch (const RuntimeFailure& failure) {
            QCOMPARE(failure.file(), db().path());
        }
    }
    void an_unreadable_file_is_reported() {
        write("online_db.dat", "x");
        setMode("online_db.dat", 0);
        const OrdinaryUser user;
        QCOMPARE(readFailure(), number(RuntimeFailure::permissionDenied));
    }
    void anything_but_a_file_is_refused_at_once_data() {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"folder", "pipe", "device"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void anything_but_a_file_is_refused_at_once() {
        QFETCH(QString, kind);
        folder->makeFolder(u"folder"_s);
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0666), 0);
        softLink("/dev/zero", "device");
        softLink(kind.toUtf8().constData(), "online_db.dat");
        QCOMPARE(readFailure(), number(RuntimeFailure::pathAccess));
    }
    void a_link_to_a_file_is_read() {
        write("shared.txt", lineOf("byn", "shared"));
        softLink("shared.txt", "online_db.dat");
        QCOMPARE(column(*rows(), 0), QStringList{u"shared"_s});
    }
    void a_file_above_512_mib_is_too_large() {
        QFile sparse(write("online_db.dat", ""));
        QVERIFY(sparse.resize((qint64{512} << 20) + 1));
        QCOMPARE(readFailure(), number(RuntimeFailure::outOfMemory));
        QVERIFY(sparse.resize(qint64{1} << 42));
        QCOMPARE(readFailure(), number(RuntimeFailure::outOfMemory));
        QVERIFY(sparse.resize(qint64{4} << 20));
        QCOMPARE(rows()->count(), 0);
    }
    void a_file_that_is_replaced_while_it_is_read_is_the_old_or_the_new_one() {
        const QByteArray old = (lineOf("byn", "old") + "\r\n").repeated(20'000);
        const QByteArray fresh = (lineOf("byn", "new") + "\r\n").repeated(30'000);
        db().write(old);
        bool isNext = false;
        readWhile(
            [&] {
                isNext = !isNext;
                db().write(isNext ? fresh : old);
            },
            [](const OnlineDbRows& read) {
                const bool isOld = read.text(0, 0) == u"old"_s;
                QCOMPARE(read.count(), isOld ? 20'000 : 30'000);
                QCOMPARE(read.text(read.count() - 1, 0), isOld ? u"old"_s : u"new"_s);
            });
    }
    void a_file_that_is_cut_while_it_is_read_gives_whatever_was_there() {
        const QByteArray lines = (lineOf("byn", "a") + "\r\n").repeated(20'000);
        write("online_db.dat", lines);
        readWhile(
            [&] {
                QFile file(at("online_db.dat"));
                QVERIFY(file.open(QIODevice::ReadWrite));
                file.resize(lines.size() / 2);
                file.resize(0);
                file.write(lines);
            },
            [](const OnlineDbRows& read) { QVERIFY(read.count() <= 20'000); });
    }
};

TORVANE_APPLESS_TEST(OnlineDbTest)
#include "OnlineDbTest.moc"
