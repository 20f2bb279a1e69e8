// SPDX-License-Identifier: MIT
// Reading the names of a folder: which names are in the table, and in which order.
#include "platform/base/FolderNames.h"
#include "platform/base/NativeText.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;

class FolderNamesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    QByteArrayList names(const char* pattern = "*.gb") const {
        const auto table = FolderNames::read(folder->path(), QString::fromLatin1(pattern));
        QByteArrayList all;
        for (int i = 0; i < table->count(); ++i) all.append(table->bytes(i).toByteArray());
        return all;
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void names_are_in_order_without_regard_to_case_and_equal_ones_by_their_bytes() {
        const QByteArrayList ordered = {"10.gb", "9.gb", "A.gb",           "a.gb",           "A1.gb", "B.gb",
                                        "b.gb",  "c.GB", "long name a.gb", "Long Name B.gb", "z.gb"};
        for (qsizetype i = ordered.size(); i-- > 0;) folder->writeNative(ordered[i], "x");
        QCOMPARE(names(), ordered);
    }
    void names_with_a_long_common_beginning_are_in_order() {
        const QByteArray a15(15, 'a');
        const QByteArray a16(16, 'A');
        const QByteArrayList ordered = {"aaaaaaa.gb",  "AAAAAAAA.gb", "aaaaaaaa1.gb", "aaaaaaaaA.gb",
                                        a15 + ".gb",   a16 + ".gb",   a16 + "1.gb",   a16 + "1a.gb",
                                        a16 + "A1.gb", a16 + "a1.gb", a16 + "a2.gb",  a16 + "aa.gb",
                                        a16 + "aB.gb", a15 + "b.gb",  "aaaaaaaaab.gb"};
        for (qsizetype i = ordered.size(); i-- > 0;) folder->writeNative(ordered[i], "x");
        QCOMPARE(names(), ordered);
    }
    void letters_outside_ascii_are_ordered_without_regard_to_case() {
        const QByteArrayList ordered = {"zeta.gb", "Àa.gb", "àb.gb",    "ÀC.gb",
                                        "Ña.gb",   "ñb.gb", "ñ\xFE.gb", "Ñ\xFF.gb"};
        for (qsizetype i = ordered.size(); i-- > 0;) folder->writeNative(ordered[i], "x");
        QCOMPARE(names(), ordered);
    }
    void folders_hidden_files_and_other_kinds_are_left_out() {
        folder->write(QStringLiteral("file.gb"), "x");
        folder->write(QStringLiteral(".hidden.gb"), "x");
        folder->write(QStringLiteral(".torvane-a1b2c3.gb"), "x");
        folder->write(QStringLiteral("other.txt"), "x");
        folder->makeFolder(QStringLiteral("folder.gb"));
        QCOMPARE(mkfifo(folder->native("pipe.gb").constData(), 0666), 0);
        QCOMPARE(symlink("folder.gb", folder->native("to folder.gb").constData()), 0);
        QCOMPARE(symlink("nowhere", folder->native("to nowhere.gb").constData()), 0);
        QCOMPARE(symlink("loop.gb", folder->native("loop.gb").constData()), 0);
        QCOMPARE(symlink("pipe.gb", folder->native("to pipe.gb").constData()), 0);
        QCOMPARE(names(), QByteArrayList{"file.gb"});
    }
    void a_link_to_a_file_is_a_file() {
        folder->write(QStringLiteral("data/real.bin"), "x");
        QCOMPARE(symlink("data/real.bin", folder->native("linked.gb").constData()), 0);
        QCOMPARE(names(), QByteArrayList{"linked.gb"});
    }
    void names_of_any_bytes_are_kept_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"back\\slash.gb", "no utf8 \xF1\xFF\x80.gb", "two  blanks .gb", " front.gb",
                                 "quote\"'.gb", "%s%n.gb", "line\nbreak.gb", "a.b.c.gb", "dots....gb",
                                 "\xEF\xBB\xBFmark.gb", "\xF0\x9F\x98\x80.gb", "-rf.gb"}) {
            QTest::newRow(name) << QByteArray(name);
        }
        QTest::newRow("the longest name") << QByteArray(252, 'n') + ".gb";
        QTest::newRow("the longest name that folding lengthens")
            << QByteArray("\xCE\x90").repeated(126) + ".gb";
    }
    void names_of_any_bytes_are_kept() {
        QFETCH(QByteArray, name);
        folder->writeNative(name, "x");
        const auto table = FolderNames::read(folder->path(), QStringLiteral("*.gb"));
        QCOMPARE(table->count(), 1);
        QCOMPARE(table->bytes(0).toByteArray(), name);
        QCOMPARE(NativeText::toNative(table->name(0)), name);
    }
    void an_empty_pattern_matches_every_file() {
        folder->write(QStringLiteral("b"), "x");
        folder->write(QStringLiteral("a.txt"), "x");
        QCOMPARE(names(""), (QByteArrayList{"a.txt", "b"}));
    }
    void a_missing_folder_a_file_and_an_empty_path_give_an_empty_table() {
        const QString all = QStringLiteral("*");
        QCOMPARE(FolderNames::read(folder->path(QStringLiteral("gone")), all)->count(), 0);
        QCOMPARE(FolderNames::read(folder->write(QStringLiteral("file"), "x"), all)->count(), 0);
        QCOMPARE(FolderNames::read(QString(), all)->count(), 0);
    }
    void an_unreadable_folder_gives_an_empty_table() {
        folder->write(QStringLiteral("shut/a.gb"), "x");
        folder->setMode(QStringLiteral("shut"), 0);
        int count = -1;
        {
            const OrdinaryUser user;
            count = FolderNames::read(folder->path(QStringLiteral("shut")), QStringLiteral("*"))->count();
        }
        folder->setMode(QStringLiteral("shut"), 0755);
        QCOMPARE(count, 0);
    }
    void the_folder_is_found_without_regard_to_case_and_with_a_separator_at_its_end() {
        folder->write(QStringLiteral("Roms/a.gb"), "x");
        QCOMPARE(
            FolderNames::read(folder->path() + QStringLiteral("\\ROMS\\"), QStringLiteral("*.gb"))->count(),
            1);
    }
    void a_table_stays_as_it_was_read() {
        folder->write(QStringLiteral("a.gb"), "x");
        const auto table = FolderNames::read(folder->path(), QStringLiteral("*.gb"));
        folder->write(QStringLiteral("0.gb"), "x");
        QVERIFY(QFile::remove(folder->path(QStringLiteral("a.gb"))));
        QCOMPARE(table->count(), 1);
        QCOMPARE(table->name(0), QStringLiteral("a.gb"));
        QCOMPARE(names(), QByteArrayList{"0.gb"});
    }
    void ten_thousand_names_are_complete_and_in_order() {
        for (int i = 0; i < 10000; ++i) {
            const int number = i * 7919 % 10000;
            folder->writeNative("Game " + QByteArray::number(number).rightJustified(5, '0') + ".gb", "");
        }
        const QByteArrayList all = names();
        QCOMPARE(all.size(), 10000);
        QCOMPARE(all.first(), QByteArray("Game 00000.gb"));
        QCOMPARE(all.last(), QByteArray("Game 09999.gb"));
        QVERIFY(std::is_sorted(all.begin(), all.end()));
    }
};

TORVANE_APPLESS_TEST(FolderNamesTest)
#include "FolderNamesTest.moc"
