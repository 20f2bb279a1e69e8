// SPDX-License-Identifier: MIT
// The note of an append: its content, when it is rejected, and how an append is undone from it.
#include "platform/base/AppendNote.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
const QByteArray notedRom = "rom bytes";
const QByteArray notedLine("ID3TAG\xA7"
                           "a\0b\xA7\r\n",
                           13);
const AppendNote::Content notedGame{"a.gb", notedRom.size(), notedLine};
} // namespace

class AppendNoteTest : public FileFixture {
    Q_OBJECT

    std::unique_ptr<Folder> open;

    // The bytes of the note on the disk.
    QByteArray noteBytes(const AppendNote::Content& content) const {
        { AppendNote(*open, content).leave(); }
        for (const QString& name : folder->entries()) {
            if (!HiddenFile::isOfKind(HiddenFile::appendNote, name.toLatin1())) continue;
            const QByteArray bytes = folder->read(name);
            QFile::remove(folder->path(name));
            return bytes;
        }
        return {};
    }
    std::optional<AppendNote::Content> readNote(const QByteArray& bytes) const {
        write("note", bytes);
        return AppendNote::read(Handle(::open(folder->native("note").constData(), O_RDONLY)));
    }
    bool cutBack(const AppendNote::Content& content = notedGame) const {
        return AppendNote::cutBack(Handle(::open(folder->native("a.gb").constData(), O_RDWR)), content);
    }

private slots:
    void init() {
        renewFolder();
        open = std::make_unique<Folder>(folder->native("."));
    }

    void a_note_is_hidden_in_the_folder_until_the_append_is_done() {
        {
            const AppendNote note(*open, notedGame);
            const QStringList names = folder->entries();
            QCOMPARE(names.size(), 1);
            QVERIFY(HiddenFile::isOfKind(HiddenFile::appendNote, names[0].toLatin1()));
            QCOMPARE(modeOf(names[0].toLatin1().constData()), 0600u);
        }
        expectNames({});
    }
    void a_note_is_read_as_it_was_written_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<qint64>("length");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("game") << notedGame.name << notedGame.length << notedGame.bytes;
        QTest::newRow("name of any bytes") << QByteArray("\xF1\n\\%s \x01") << qint64(0) << notedLine;
        QTest::newRow("longest name") << QByteArray(255, 'n') << qint64(1) << notedLine;
        QTest::newRow("huge file") << notedGame.name << (qint64(1) << 40) << notedLine;
        QTest::newRow("nothing appended") << notedGame.name << notedGame.length << QByteArray();
        QTest::newRow("much appended") << notedGame.name << notedGame.length << QByteArray(2 << 20, 'x');
    }
    void a_note_is_read_as_it_was_written() {
        QFETCH(QByteArray, name);
        QFETCH(qint64, length);
        QFETCH(QByteArray, bytes);
        const auto content = readNote(noteBytes({name, length, bytes}));
        QVERIFY(content.has_value());
        QCOMPARE(content->name, name);
        QCOMPARE(content->length, length);
        QCOMPARE(content->bytes, bytes);
    }
    void a_note_that_is_damaged_at_any_byte_is_rejected() {
        const QByteArray whole = noteBytes(notedGame);
        QVERIFY(readNote(whole).has_value());
        for (qsizetype i = 0; i < whole.size(); ++i) {
            for (const int mask : {0x01, 0x80, 0xFF}) {
                QByteArray damaged = whole;
                damaged[i] = static_cast<char>(damaged[i] ^ mask);
                QVERIFY2(!readNote(damaged).has_value(), QByteArray::number(i).constData());
            }
        }
    }
    void a_note_that_is_cut_or_longer_is_rejected() {
        const QByteArray whole = noteBytes(notedGame);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            QVERIFY(!readNote(whole.first(length)).has_value());
            QVERIFY(!readNote(whole.first(length) + QByteArray(whole.size() - length, '\0')).has_value());
        }
        QVERIFY(!readNote(whole + '\0').has_value());
    }
    void a_note_that_leads_out_of_its_folder_is_rejected_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"sub/a.gb", "../a.gb", "/a.gb", "a.gb/"})
            QTest::newRow(name) << QByteArray(name);
    }
    void a_note_that_leads_out_of_its_folder_is_rejected() {
        QFETCH(QByteArray, name);
        QVERIFY(!readNote(noteBytes({name, 1, notedLine})).has_value());
    }
    void a_note_with_a_length_below_0_is_rejected() {
        QVERIFY(!readNote(noteBytes({"a.gb", -1, notedLine})).has_value());
    }
    void a_huge_file_is_no_note_and_does_not_exhaust_memory() {
        write("note", "");
        QVERIFY(QFile::resize(at("note"), qint64(1) << 40));
        QVERIFY(!AppendNote::read(Handle(::open(folder->native("note").constData(), O_RDONLY))).has_value());
    }

    void recovery_keeps_a_whole_line_and_cuts_every_part_of_one() {
        for (qsizetype length = 0; length <= notedLine.size(); ++length) {
            write("a.gb", notedRom + notedLine.first(length));
            QVERIFY(AppendNote::recover(*open, notedGame));
            QCOMPARE(read("a.gb"), length == notedLine.size() ? notedRom + notedLine : notedRom);
        }
    }
    void recovery_cuts_zeros_that_replace_bytes_of_the_line() {
        for (qsizetype hole = 0; hole < notedLine.size(); ++hole) {
            QByteArray withHole = notedLine;
            withHole[hole] = '\0';
            if (withHole == notedLine) continue;
            write("a.gb", notedRom + withHole);
            QVERIFY(AppendNote::recover(*open, notedGame));
            QCOMPARE(read("a.gb"), notedRom);
            write("a.gb", notedRom + QByteArray(hole + 1, '\0'));
            QVERIFY(AppendNote::recover(*open, notedGame));
            QCOMPARE(read("a.gb"), notedRom);
        }
    }
    void recovery_keeps_what_another_program_wrote_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("shorter") << notedRom.chopped(1);
        QTest::newRow("as long") << QByteArray(notedRom.size(), '\0');
        QTest::newRow("other bytes after it") << notedRom + "X";
        QTest::newRow("half a line and other bytes") << notedRom + notedLine.first(5) + "X";
        QTest::newRow("a line and more") << notedRom + notedLine + notedLine.first(1);
        QTest::newRow("a line and a zero") << notedRom + notedLine + '\0';
        QTest::newRow("as many other bytes") << notedRom + QByteArray(notedLine.size(), 'X');
    }
    void recovery_keeps_what_another_program_wrote() {
        QFETCH(QByteArray, bytes);
        write("a.gb", bytes);
        QVERIFY(AppendNote::recover(*open, notedGame));
        QCOMPARE(read("a.gb"), bytes);
        QVERIFY(cutBack());
        QCOMPARE(read("a.gb"), bytes);
    }
    void cutting_back_removes_a_whole_line_too() {
        for (qsizetype length = 0; length <= notedLine.size(); ++length) {
            write("a.gb", notedRom + notedLine.first(length));
            QVERIFY(cutBack());
            QCOMPARE(read("a.gb"), notedRom);
        }
    }
    void cutting_back_reports_what_can_not_be_cut_without_failing() {
        write("a.gb", notedRom + notedLine);
        const Handle reading(::open(folder->native("a.gb").constData(), O_RDONLY));
        QVERIFY(!AppendNote::cutBack(reading, notedGame));
        QVERIFY(!AppendNote::cutBack(Handle(), notedGame));
        QCOMPARE(read("a.gb"), notedRom + notedLine);
    }
    void a_missing_file_needs_no_recovery_data() {
        QTest::addColumn<QByteArray>("kind");
        for (const char* kind : {"missing", "folder", "link", "pipe"})
            QTest::newRow(kind) << QByteArray(kind);
    }
    void a_missing_file_needs_no_recovery() {
        QFETCH(QByteArray, kind);
        const QByteArray half = notedRom + notedLine.first(3);
        write("elsewhere.gb", half);
        if (kind == "folder") folder->makeFolder(QStringLiteral("a.gb"));
        if (kind == "link") softLink("elsewhere.gb", "a.gb");
        if (kind == "pipe") QCOMPARE(mkfifo(folder->native("a.gb").constData(), 0600), 0);
        QVERIFY(AppendNote::recover(*open, notedGame));
        QCOMPARE(read("elsewhere.gb"), half);
    }
    void a_read_only_file_can_not_be_recovered() {
        write("a.gb", notedRom + notedLine.first(3));
        setMode("a.gb", 0444);
        {
            const OrdinaryUser user;
            QVERIFY(!AppendNote::recover(*open, notedGame));
        }
        QCOMPARE(read("a.gb"), notedRom + notedLine.first(3));
    }
};

TORVANE_APPLESS_TEST(AppendNoteTest)
#include "AppendNoteTest.moc"
