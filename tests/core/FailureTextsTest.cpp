// SPDX-License-Identifier: MIT
// Failures in words: the file, the reason in the language, the number; and what files the modules name.
#include "core/FailureTexts.h"
#include "catalogue/ID3.h"
#include "platform/base/File.h"
#include "platform/base/FileCopies.h"
#include "platform/base/SafeFile.h"
#include "support/FakeDesktop.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

using namespace torvane;

class FailureTextsTest : public FileFixture {
    Q_OBJECT

    Globals globals;
    LanguageTables language{globals};
    FailureTexts texts{language};
    FakeMessages messages;

    void use(const char* code) {
        globals.LanguageFile =
            QStringLiteral(TORVANE_TREE_DIR "/data/lang/lang_%1.tvl").arg(QLatin1String(code));
    }
    // What a user is shown of a failed action; empty if it does not fail.
    QString reported(const std::function<void()>& action) const {
        try {
            action();
        } catch (const RuntimeFailure& failure) {
            return texts.of(failure);
        }
        return {};
    }
    QString reportOf(RuntimeFailure::Number number) const {
        return texts.of(RuntimeFailure(number).about(QStringLiteral("C:\\roms/a b.gb")));
    }

private slots:
    void init() {
        renewFolder();
        use("eng");
    }

    void a_text_has_the_bare_name_the_reason_and_the_number() {
        QCOMPARE(reportOf(RuntimeFailure::diskFull), QStringLiteral("a b.gb: the disk is full (61)"));
        use("esp");
        QCOMPARE(reportOf(RuntimeFailure::diskFull), QStringLiteral("a b.gb: el disco está lleno (61)"));
        use("cat");
        QCOMPARE(reportOf(RuntimeFailure::diskFull), QStringLiteral("a b.gb: el disc és ple (61)"));
    }
    void a_folder_that_is_spelled_with_its_separator_is_named_too() {
        const RuntimeFailure failure(RuntimeFailure::pathNotFound);
        QCOMPARE(texts.of(failure.about(QStringLiteral("/home\\roms\\"))),
                 QStringLiteral("roms: its folder doesn’t exist (76)"));
    }
    void every_reason_has_a_text_in_every_language_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("reason");
        using Failure = RuntimeFailure;
        for (const int number : {7, 53, 57, 61, 70, 75, 76, 482}) {
            QTest::addRow("%d", number) << number << int(Failure::Reason::none);
        }
        QTest::newRow("tag") << 13 << int(Failure::Reason::tag);
        QTest::newRow("in use") << 70 << int(Failure::Reason::inUse);
        QTest::newRow("changed") << 70 << int(Failure::Reason::changed);
        QTest::newRow("same file") << 70 << int(Failure::Reason::sameFile);
    }
    void every_reason_has_a_text_in_every_language() {
        QFETCH(int, number);
        QFETCH(int, reason);
        const RuntimeFailure failure = RuntimeFailure(static_cast<RuntimeFailure::Number>(number),
                                                      static_cast<RuntimeFailure::Reason>(reason))
                                           .about(QStringLiteral("a.gb"));
        const QString english = texts.of(failure);
        QVERIFY(english.endsWith(QStringLiteral(" (%1)").arg(number)));
        QVERIFY(!english.contains(failure.text()));
        globals.LanguageFile.clear();
        QCOMPARE(texts.of(failure), english); // without a language file
        QStringList all = {english};
        for (const char* code : {"esp", "cat"}) {
            use(code);
            all << texts.of(failure);
        }
        QCOMPARE(QSet<QString>(all.begin(), all.end()).size(), 3);
    }
    void a_number_without_words_has_its_own_text() {
        QCOMPARE(reportOf(RuntimeFailure::overflow), QStringLiteral("a b.gb: Overflow (6)"));
        QCOMPARE(reportOf(RuntimeFailure::subscript), QStringLiteral("a b.gb: Subscript out of range (9)"));
    }
    void a_failure_about_no_file_has_the_text_of_the_error_box() {
        QCOMPARE(texts.of(RuntimeFailure(RuntimeFailure::subscript)),
                 QStringLiteral("Run-time error '9':\n\nSubscript out of range"));
    }
    void a_name_of_any_bytes_is_shown() {
        const QString path = folder->writeNative("%1 \xFF\\(9).gb", "rom");
        QCOMPARE(
            reported([&] { ID3::StripRomTag(path); }),
            QStringLiteral("%1 \uFFFD\\(9).gb: its ROM.TAG can’t be understood, so it stays as it was (9)"));
    }
    void a_file_that_is_named_keeps_its_name() {
        const RuntimeFailure failure =
            RuntimeFailure(RuntimeFailure::diskFull).about(QStringLiteral("a")).about(QStringLiteral("b"));
        QCOMPARE(failure.file(), QStringLiteral("a"));
    }

    void tags_that_can_not_be_understood_are_one_reason_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("number");
        QTest::newRow("no tag") << QByteArray("rom") << 9;
        QTest::newRow("too few pieces") << QByteArray("romID3TAG\xA7"
                                                      "a\xA7")
                                        << 9;
        QTest::newRow("no number") << QByteArray("romID3TAG\xA7\xA7\xA7\xA7\xA7none\xA7") << 13;
        QTest::newRow("below 0") << QByteArray("romID3TAG\xA7\xA7\xA7\xA7\xA7-1\xA7") << 5;
    }
    void tags_that_can_not_be_understood_are_one_reason() {
        QFETCH(QByteArray, bytes);
        QFETCH(int, number);
        const QString path = write("a.gb", bytes);
        QCOMPARE(
            reported([&] { ID3::StripRomTag(path); }),
            QStringLiteral("a.gb: its ROM.TAG can’t be understood, so it stays as it was (%1)").arg(number));
        const QString longer = write("b.gb", QByteArray(2048, 'r') + bytes);
        ID3 id3(globals, language, messages);
        QCOMPARE(
            reported([&] { id3.ReplaceRomTag(longer, {}, {}, {}, {}); }),
            QStringLiteral("b.gb: its ROM.TAG can’t be understood, so it stays as it was (%1)").arg(number));
        if (!bytes.contains("ID3TAG")) return;
        QCOMPARE(
            reported([&] { id3.SaveRomTag(path, [] {}); }),
            QStringLiteral("a.gb: its ROM.TAG can’t be understood, so it stays as it was (%1)").arg(number));
    }
    void a_missing_game_is_named_by_every_action() {
        const QString gone = at("gone.gb");
        const QString expected = QStringLiteral("gone.gb: it doesn’t exist (53)");
        ID3 id3(globals, language, messages);
        QCOMPARE(reported([&] { ID3::StripRomTag(gone); }), expected);
        QCOMPARE(reported([&] { id3.SaveRomTag(gone, [] {}); }), expected);
        QCOMPARE(reported([&] { id3.AppendRomTag(gone); }), expected);
        QCOMPARE(reported([&] { id3.ReplaceRomTag(gone, {}, {}, {}, {}); }), expected);
        QCOMPARE(reported([&] { (void)id3.HasRomTag(gone); }), expected);
        QCOMPARE(reported([&] { File::remove(gone); }), expected);
        QCOMPARE(reported([&] { SafeFile::copy(gone, at("copy.gb")); }), expected);
        QCOMPARE(reported([&] { FileCopies(folder->path(), [] {}).add(gone, QStringLiteral("copy.gb")); }),
                 expected);
    }
    void a_copy_that_has_no_place_names_its_target() {
        const QString source = write("a.gb", "rom");
        QCOMPARE(reported([&] { SafeFile::copy(source, at("gone/b.gb")); }),
                 QStringLiteral("gone: it doesn’t exist (53)"));
        QCOMPARE(reported([&] { SafeFile::copy(source, source); }),
                 QStringLiteral("a.gb: a file can’t be copied onto itself (70)"));
        folder->makeFolder(QStringLiteral("c.gb"));
        QCOMPARE(
            reported([&] { SafeFile::copy(source, at("c.gb")); }),
            QStringLiteral("c.gb: it is no ordinary file, or it is on a disk that can’t be written to (75)"));
    }
    void a_full_disk_names_the_file_that_was_written() {
        const QString source = write("a.gb", QByteArray(5000, 'r'));
        const FullDisk full(100);
        QCOMPARE(reported([&] { SafeFile::copy(source, at("b.gb")); }),
                 QStringLiteral("b.gb: the disk is full (61)"));
        QCOMPARE(reported([&] { SafeFile::replace(at("c.gb"), QByteArray(5000, 'r')); }),
                 QStringLiteral("c.gb: the disk is full (61)"));
    }
    void a_game_that_another_program_writes_to_says_so() {
        const QString path = write("a.gb", "romID3TAG\xA7\xA7\xA7\xA7\xA7"
                                           "3\xA7\r\n");
        QFile other(path);
        QVERIFY(other.open(QIODevice::Append));
        QCOMPARE(reported([&] { ID3::StripRomTag(path); }),
                 QStringLiteral("a.gb: another program is writing to it (70)"));
    }
    void a_game_that_changes_meanwhile_says_so() {
        const QString path = write("a.gb", "romID3TAG\xA7\xA7\xA7\xA7\xA7"
                                           "3\xA7\r\n");
        ID3 id3(globals, language, messages);
        const auto replaced = [&] {
            const SafeFile::Change change(path);
            QFile::remove(path);
            write("a.gb", "other");
            change.commit({"ours"});
        };
        QCOMPARE(reported([&] { aboutFile(path, replaced); }),
                 QStringLiteral("a.gb: another program has just changed it (70)"));
    }
};

TORVANE_APPLESS_TEST(FailureTextsTest)
#include "FailureTextsTest.moc"
