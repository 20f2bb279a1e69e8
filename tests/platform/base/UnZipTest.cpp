// SPDX-License-Identifier: MIT
// Unpacking intact archives: every file comes out complete, under its name, with ordinary permissions.
#include "support/TestMain.h"
#include "support/UnZipFixture.h"

using namespace torvane;

class UnZipTest : public UnZipFixture {
    Q_OBJECT

    // Processor time of this process: on a busy machine real time may be much longer.
    static double milliseconds() {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    const QByteArray game = QByteArray("a game of some length, ").repeated(100);

private slots:
    void initTestCase() { umask(022); }
    void init() { renewTarget(); }

    void files_come_out_whole_however_they_are_packed() {
        const QByteArray large = game.repeated(400);
        extract(makeArchive("a.zip", {{"stored.gb", large, ZIP_CM_STORE},
                                      {"deflated.gb", large, ZIP_CM_DEFLATE},
                                      {"bzip2.gb", large, ZIP_CM_BZIP2},
                                      {"empty.gb", "", ZIP_CM_STORE}}));
        QCOMPARE(
            targetTree(),
            files({{"stored.gb", large}, {"deflated.gb", large}, {"bzip2.gb", large}, {"empty.gb", ""}}));
    }
    void a_pattern_selects_by_name_without_regard_to_case_data() {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QList<QByteArray>>("names");
        QTest::newRow("all") << "*.*" << QList<QByteArray>{"a.GB", "b.gba", "readme"};
        QTest::newRow("none given") << "" << QList<QByteArray>{"a.GB", "b.gba", "readme"};
        QTest::newRow("an ending") << "*.gb" << QList<QByteArray>{"a.GB"};
        QTest::newRow("two endings") << "*.gb;*.gba" << QList<QByteArray>{"a.GB", "b.gba"};
        QTest::newRow("no match") << "*.txt" << QList<QByteArray>{};
    }
    void a_pattern_selects_by_name_without_regard_to_case() {
        QFETCH(QString, pattern);
        QFETCH(QList<QByteArray>, names);
        unzip(makeArchive("a.zip", {{"a.GB", "x"}, {"b.gba", "x"}, {"readme", "x"}})).extract(pattern);
        QCOMPARE(targetTree().keys(), names);
    }
    void the_permissions_are_those_of_any_new_file() {
        umask(027);
        extract(makeArchive("a.zip", {{"a.gb", "x"}}));
        umask(022);
        QCOMPARE(modeOf("target/a.gb"), 0640U);
    }
    void one_control_unpacks_several_archives_in_turn() {
        UnZip control = unzip(makeArchive("a.zip", {{"a.gb", "one"}}));
        control.extract(QStringLiteral("*.*"));
        folder->makeFolder(QStringLiteral("second"));
        control.setFolder(at("second") + QLatin1Char('\\'));
        control.setArchive(makeArchive("b.zip", {{"b.gb", "two"}}));
        control.extract(QStringLiteral("*.*"));
        QCOMPARE(targetTree(), files({{"a.gb", "one"}}));
        QCOMPARE(treeOf(at("second").toStdString()), files({{"b.gb", "two"}}));
    }
    void paths_are_found_without_regard_to_case() {
        makeArchive("Game.zip", {{"a.gb", "one"}});
        UnZip control;
        control.setFolder(
            folder->path(QStringLiteral("TARGET\\")).replace(QLatin1Char('/'), QLatin1Char('\\')));
        control.setArchive(at("GAME.ZIP"));
        control.extract(QStringLiteral("*.*"));
        QCOMPARE(targetTree(), files({{"a.gb", "one"}}));
    }
    void names_that_are_not_text_come_out_even_if_the_archive_s_name_is_not() {
        makeArchive("a.zip", {{"a.gb", "one"}});
        const QString archive = folder->writeNative("\xFF\\.zip", read("a.zip"));
        const QString bare = QStringLiteral("t") + QChar(0xDCFF);
        QCOMPARE(mkdir(folder->native("t\xFF").constData(), 0755), 0);
        UnZip control;
        control.setFolder(folder->path() + QLatin1Char('\\') + bare + QLatin1Char('\\'));
        control.setArchive(archive);
        control.extract(QStringLiteral("*.*"));
        QCOMPARE(bytesOfFile(folder->native("t\xFF/a.gb").toStdString()), QByteArray("one"));
    }

    void the_question_is_asked_every_few_milliseconds_within_one_entry_data() {
        QTest::addColumn<int>("method");
        QTest::newRow("stored") << ZIP_CM_STORE;
        QTest::newRow("deflated") << ZIP_CM_DEFLATE;
        QTest::newRow("bzip2, of which a few bytes are the whole entry") << ZIP_CM_BZIP2;
    }
    void the_question_is_asked_every_few_milliseconds_within_one_entry() {
        QFETCH(int, method);
        const QString archive = makeArchive("a.zip", {{"a.gb", QByteArray(48 << 20, 'a'), method}});
        UnZip control = unzip(archive);
        double answered = milliseconds();
        double longest = 0;
        int questions = 0;
        control.goesOn = [&] {
            longest = std::max(longest, milliseconds() - answered);
            answered = milliseconds();
            ++questions;
            return true;
        };
        control.extract(QStringLiteral("*.*"));
        QVERIFY(questions > 1);
        QVERIFY2(longest < 100, qPrintable(QString::number(longest)));
        QCOMPARE(infoOf("target/a.gb").st_size, 48 << 20);
    }
    void after_a_no_the_entry_is_removed_and_nothing_is_asked_again_data() {
        QTest::addColumn<int>("no");
        for (const int no : {1, 2, 3}) QTest::addRow("at question %d", no) << no;
    }
    void after_a_no_the_entry_is_removed_and_nothing_is_asked_again() {
        QFETCH(int, no);
        UnZip control = unzip(makeArchive("a.zip", {{"a.gb", QByteArray(60 << 20, 'a')}, {"b.gb", "b"}}));
        int questions = 0;
        control.goesOn = [&] { return ++questions < no; };
        control.extract(QStringLiteral("*.*"));
        QCOMPARE(questions, no);
        QCOMPARE(targetTree(), FolderTree());
    }
    void after_a_no_between_small_entries_nothing_is_touched_data() {
        QTest::addColumn<int>("no");
        for (int no = 1; no <= 8; ++no) QTest::addRow("at question %d", no) << no;
    }
    void after_a_no_between_small_entries_nothing_is_touched() {
        QFETCH(int, no);
        QList<ArchiveEntry> entries;
        for (int i = 0; i < 3000; ++i) entries.append(ArchiveEntry{"g" + QByteArray::number(i), game});
        UnZip control = unzip(makeArchive("a.zip", entries));
        int questions = 0;
        FolderTree atTheNo;
        control.goesOn = [&] {
            if (++questions < no) return true;
            atTheNo = targetTree();
            return false;
        };
        control.extract(QStringLiteral("*.*"));
        QCOMPARE(questions, no);
        if (!atTheNo.isEmpty() && atTheNo.firstKey().startsWith('.')) atTheNo.erase(atTheNo.begin());
        QCOMPARE(targetTree(), atTheNo);
    }
    void the_first_question_is_asked_while_a_long_directory_is_read() {
        QList<ArchiveEntry> entries;
        for (int i = 0; i < 60'000; ++i)
            entries.append(ArchiveEntry{"g" + QByteArray::number(i), "", ZIP_CM_STORE});
        UnZip control = unzip(makeArchive("a.zip", entries));
        control.goesOn = [] { return false; };
        const double start = milliseconds();
        control.extract(QStringLiteral("*.*"));
        QVERIFY2(milliseconds() - start < 100, qPrintable(QString::number(milliseconds() - start)));
        QCOMPARE(targetTree(), FolderTree());
    }
    void the_control_may_be_destroyed_while_the_question_is_answered() {
        auto control =
            std::make_unique<UnZip>(unzip(makeArchive("a.zip", {{"a.gb", QByteArray(60 << 20, 'a')}})));
        control->goesOn = [&control] {
            control.reset();
            return false;
        };
        control->extract(QStringLiteral("*.*"));
        QVERIFY(!control);
        QCOMPARE(targetTree(), FolderTree());
    }
    void unpacking_again_within_the_question_disturbs_nothing() {
        UnZip control = unzip(makeArchive("a.zip", {{"a.gb", QByteArray(40 << 20, 'a')}}));
        const QString other = makeArchive("b.zip", {{"b.gb", "b"}});
        bool isFirst = true;
        control.goesOn = [&] {
            if (std::exchange(isFirst, false)) extract(other);
            return true;
        };
        control.extract(QStringLiteral("*.*"));
        QCOMPARE(targetTree().keys(), (QList<QByteArray>{"a.gb", "b.gb"}));
        QCOMPARE(infoOf("target/a.gb").st_size, 40 << 20);
    }
};

TORVANE_APPLESS_TEST(UnZipTest)
#include "UnZipTest.moc"
