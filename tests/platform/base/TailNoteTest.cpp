// SPDX-License-Identifier: MIT
// The note of changed ends of files: its content, when it is rejected, and how old ends are restored from it.
#include "platform/base/TailNote.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

#include <QCryptographicHash>
#include <QDataStream>

using namespace torvane;

namespace {
const QByteArray notedRom = "rom bytes";
const QByteArray notedLine("ID3TAG\xA7"
                           "a\0b\xA7\r\n",
                           13);
const QByteArray oldLine("ID3TAG\xA7old\xA7\r\n");
const TailChange appended{"a.gb", 0, notedRom.size(), {}, notedLine};

// What a note of an earlier version holds.
QByteArray oldNote(const QByteArray& name, qint64 length, const QByteArray& bytes) {
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    stream << name << length << bytes;
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256) + content;
}
} // namespace

class TailNoteTest : public FileFixture {
    Q_OBJECT

    std::unique_ptr<Folder> open;

    // The bytes of the note on the disk.
    QByteArray noteBytes(const TailNote::Changes& changes) const {
        { TailNote(*open, changes).leave(); }
        for (const QString& name : folder->entries()) {
            if (!TailNote::isName(name.toLatin1())) continue;
            const QByteArray bytes = folder->read(name);
            QFile::remove(folder->path(name));
            return bytes;
        }
        return {};
    }
    std::optional<TailNote::Changes> readNote(const QByteArray& bytes,
                                              const QByteArray& name = ".torvane-tail-abcdef") const {
        write("note", bytes);
        return TailNote::read(Handle(::open(folder->native("note").constData(), O_RDONLY)), name);
    }
    bool restore(const TailChange& change) const {
        return TailNote::restore(Handle(::open(folder->native("a.gb").constData(), O_RDWR)), change);
    }
    static void ends() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("appended") << QByteArray() << notedLine;
        QTest::newRow("longer") << oldLine << QByteArray(oldLine.chopped(4) + "new title\xA7\r\n");
        QTest::newRow("shorter") << QByteArray(oldLine.chopped(4) + "long title\xA7\r\n") << oldLine;
        QTest::newRow("as long") << oldLine << QByteArray("ID3TAG\xA7new\xA7\r\n");
        QTest::newRow("removed") << oldLine << QByteArray("\r\n");
    }
    static quint64 inodeOf(const QByteArray& path) {
        struct stat info {};
        stat(path.constData(), &info);
        return info.st_ino;
    }

private slots:
    void init() {
        renewFolder();
        open = std::make_unique<Folder>(folder->native("."));
    }

    void a_note_is_hidden_in_the_folder_until_the_change_is_done() {
        {
            const TailNote note(*open, {appended});
            const QStringList names = folder->entries();
            QCOMPARE(names.size(), 1);
            QVERIFY(names[0].startsWith(QStringLiteral(".torvane-tail-")));
            QVERIFY(TailNote::isName(names[0].toLatin1()));
            QCOMPARE(modeOf(names[0].toLatin1().constData()), 0600u);
        }
        expectNames({});
    }
    void a_note_is_read_as_it_was_written_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<qint64>("start");
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("game") << appended.name << appended.start << oldLine << notedLine;
        QTest::newRow("name of any bytes")
            << QByteArray("\xF1\n\\%s \x01") << qint64(0) << oldLine << notedLine;
        QTest::newRow("longest name") << QByteArray(255, 'n') << qint64(1) << QByteArray() << notedLine;
        QTest::newRow("huge file") << appended.name << (qint64(1) << 40) << oldLine << notedLine;
        QTest::newRow("nothing") << appended.name << appended.start << QByteArray() << QByteArray();
        QTest::newRow("much") << appended.name << appended.start << QByteArray(1 << 20, 'y')
                              << QByteArray(2 << 20, 'x');
    }
    void a_note_is_read_as_it_was_written() {
        QFETCH(QByteArray, name);
        QFETCH(qint64, start);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const auto changes = readNote(noteBytes({{name, 77, start, before, after}, appended}));
        QVERIFY(changes.has_value());
        QCOMPARE(changes->size(), size_t{2});
        const TailChange& first = changes->front();
        QCOMPARE(first.name, name);
        QCOMPARE(first.inode, quint64{77});
        QCOMPARE(first.start, start);
        QCOMPARE(first.before, before);
        QCOMPARE(first.after, after);
        QCOMPARE(changes->back().after, notedLine);
    }
    void a_note_of_an_earlier_version_is_read() {
        const auto changes = readNote(oldNote("a.gb", 9, notedLine), ".torvane-append-abcdef");
        QVERIFY(changes.has_value());
        QCOMPARE(changes->size(), size_t{1});
        QCOMPARE(changes->front().name, QByteArray("a.gb"));
        QCOMPARE(changes->front().start, 9);
        QCOMPARE(changes->front().before, QByteArray());
        QCOMPARE(changes->front().after, notedLine);
        QVERIFY(!readNote(oldNote("a.gb", 9, notedLine)).has_value());
    }
    void a_note_that_is_damaged_at_any_byte_is_rejected() {
        const QByteArray whole = noteBytes({appended});
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
        const QByteArray whole = noteBytes({appended});
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
        QVERIFY(!readNote(noteBytes({appended, {name, 0, 1, {}, notedLine}})).has_value());
    }
    void a_note_with_a_start_below_0_is_rejected() {
        QVERIFY(!readNote(noteBytes({{"a.gb", 0, -1, {}, notedLine}})).has_value());
    }
    void a_huge_file_is_no_note_and_does_not_exhaust_memory() {
        write("note", "");
        QVERIFY(QFile::resize(at("note"), qint64(1) << 40));
        const Handle huge(::open(folder->native("note").constData(), O_RDONLY));
        QVERIFY(!TailNote::read(huge, ".torvane-tail-abcdef").has_value());
    }
    void changes_that_are_too_large_for_a_note_are_refused() {
        const TailChange large{"a.gb", 0, 0, {}, QByteArray(65 << 20, 'x')};
        QVERIFY(!ignoring([&] { const TailNote note(*open, {large}); }));
        expectNames({});
    }

    void recovery_keeps_a_whole_end_and_undoes_every_part_of_one_data() { ends(); }
    void recovery_keeps_a_whole_end_and_undoes_every_part_of_one() {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const TailChange change{"a.gb", 0, notedRom.size(), before, after};
        for (qsizetype written = 0; written <= after.size(); ++written) {
            const QByteArray found = after.first(written) + before.mid(written);
            write("a.gb", notedRom + found);
            QVERIFY(TailNote::recover(*open, change));
            QCOMPARE(read("a.gb"), notedRom + (found == after ? after : before));
        }
    }
    void recovery_undoes_any_mixture_with_zeros_of_any_length_between_data() { ends(); }
    void recovery_undoes_any_mixture_with_zeros_of_any_length_between() {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const TailChange change{"a.gb", 0, notedRom.size(), before, after};
        const qsizetype least = std::min(before.size(), after.size());
        const qsizetype most = std::max(before.size(), after.size());
        quint32 random = 1;
        for (int i = 0; i < 100; ++i) {
            const auto next = [&random] { return (random = random * 1664525 + 1013904223) >> 16; };
            QByteArray found(least + static_cast<qsizetype>(next()) % (most - least + 1), '\0');
            for (qsizetype at = 0; at < found.size(); ++at) {
                const QByteArray& end = next() % 2 == 0 ? before : after;
                if (at < end.size() && next() % 4 != 0) found[at] = end[at];
            }
            write("a.gb", notedRom + found);
            QVERIFY(TailNote::recover(*open, change));
            QCOMPARE(read("a.gb"), notedRom + (found == after ? after : before));
        }
    }
    void what_another_program_wrote_stays_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray none;
        QTest::newRow("empty") << none << QByteArray();
        QTest::newRow("shorter") << none << notedRom.chopped(1);
        QTest::newRow("as long") << none << QByteArray(notedRom.size(), '\0');
        QTest::newRow("other bytes after it") << none << notedRom + "X";
        QTest::newRow("half a line and other bytes") << none << notedRom + notedLine.first(5) + "X";
        QTest::newRow("a line and more") << none << notedRom + notedLine + notedLine.first(1);
        QTest::newRow("a line and a zero") << none << notedRom + notedLine + '\0';
        QTest::newRow("as many other bytes") << none << notedRom + QByteArray(notedLine.size(), 'X');
        QTest::newRow("old end, shortened") << oldLine << notedRom + oldLine.chopped(1);
        QTest::newRow("new end, shortened") << oldLine << notedRom + notedLine.first(notedLine.size() - 2);
        QTest::newRow("no end any more") << oldLine << notedRom;
        QTest::newRow("one other byte") << oldLine << notedRom + "X" + oldLine.sliced(1);
    }
    void what_another_program_wrote_stays() {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, bytes);
        const TailChange change{"a.gb", 0, notedRom.size(), before, notedLine};
        write("a.gb", bytes);
        QVERIFY(TailNote::recover(*open, change));
        QCOMPARE(read("a.gb"), bytes);
        QVERIFY(restore(change));
        QCOMPARE(read("a.gb"), bytes);
    }
    void a_file_that_was_renamed_in_its_folder_is_recovered() {
        write("b.gb", notedRom + notedLine.first(4) + oldLine.sliced(4));
        write("a.gb", "another game");
        const TailChange change{"a.gb", inodeOf(folder->native("b.gb")), notedRom.size(), oldLine, notedLine};
        QVERIFY(TailNote::recover(*open, change));
        QCOMPARE(read("b.gb"), notedRom + oldLine);
        QCOMPARE(read("a.gb"), QByteArray("another game"));
        QFile::remove(at("a.gb"));
        write("b.gb", notedRom + notedLine.first(4));
        QVERIFY(TailNote::recover(*open, {"a.gb", change.inode, notedRom.size(), {}, notedLine}));
        QCOMPARE(read("b.gb"), notedRom);
    }
    void restoring_undoes_a_whole_end_too_but_knows_no_zeros_data() { ends(); }
    void restoring_undoes_a_whole_end_too_but_knows_no_zeros() {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const TailChange change{"a.gb", 0, notedRom.size(), before, after};
        for (qsizetype written = 0; written <= after.size(); ++written) {
            write("a.gb", notedRom + after.first(written) + before.mid(written));
            QVERIFY(restore(change));
            QCOMPARE(read("a.gb"), notedRom + before);
        }
        const QByteArray zeros = notedRom + QByteArray(after.size(), '\0');
        write("a.gb", zeros);
        QVERIFY(restore(change));
        QCOMPARE(read("a.gb"), zeros);
    }
    void restoring_reports_what_can_not_be_restored_without_failing() {
        write("a.gb", notedRom + notedLine);
        const Handle reading(::open(folder->native("a.gb").constData(), O_RDONLY));
        QVERIFY(!TailNote::restore(reading, appended));
        QVERIFY(!TailNote::restore(Handle(), appended));
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
        QVERIFY(TailNote::recover(*open, appended));
        QCOMPARE(read("elsewhere.gb"), half);
    }
    void a_read_only_file_can_not_be_recovered() {
        write("a.gb", notedRom + notedLine.first(3));
        setMode("a.gb", 0444);
        {
            const OrdinaryUser user;
            QVERIFY(!TailNote::recover(*open, appended));
        }
        QCOMPARE(read("a.gb"), notedRom + notedLine.first(3));
    }
};

TORVANE_APPLESS_TEST(TailNoteTest)
#include "TailNoteTest.moc"
