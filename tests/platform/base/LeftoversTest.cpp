// SPDX-License-Identifier: MIT
// Leftovers of a killed run are removed from a folder, and nothing else is.
#include "platform/base/Leftovers.h"
#include "platform/base/TailNote.h"
#include "support/FileFixture.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
const QByteArray rom = "rom bytes";
const QByteArray line("ID3TAG\xA7"
                      "a\xA7"
                      "b\xA7\r\n");
const TailChange game{"a.gb", 0, rom.size(), {}, line};
} // namespace

class LeftoversTest : public FileFixture {
    Q_OBJECT

    // A note as a killed run leaves it.
    QString leaveNote(const TailNote::Changes& changes = {game}) const {
        const QStringList before = folder->entries();
        const Folder open(folder->native("."));
        { TailNote(open, changes).leave(); }
        for (const QString& name : folder->entries()) {
            if (!before.contains(name)) return name;
        }
        return {};
    }
    void sweep() const { Leftovers::sweep(folder->path()); }

private slots:
    void init() { renewFolder(); }

    void hidden_files_of_all_kinds_are_removed_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {".torvane-abcdef", ".torvane-zzzzzz", ".torvane-a0b1c9", ".torvane-012345",
                                 ".torvane-append", ".torvane-append-abcdef", ".torvane-tail-000000"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void hidden_files_of_all_kinds_are_removed() {
        QFETCH(QString, name);
        folder->write(name, "content");
        write("a.gb", rom);
        sweep();
        expectNames({QStringLiteral("a.gb")});
        QCOMPARE(read("a.gb"), rom);
    }
    void everything_else_stays_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"a.gb",
                                 ".torvane-abc",
                                 ".torvane-abcde",
                                 ".torvane-abcdefg",
                                 ".torvane-ABCDEF",
                                 ".torvane-abc ef",
                                 ".torvane-abc.ef",
                                 ".torvane-abcdeF",
                                 ".torvane-",
                                 ".torvane",
                                 ".torvane-abcde~",
                                 ".Torvane-abcdef",
                                 "torvane-abcdef",
                                 "x.torvane-abcdef",
                                 ".torvane-abcdef.gb",
                                 ".torvane-append-",
                                 ".torvane-append-abc",
                                 ".torvane-append-abcdefg",
                                 ".torvane-append-ABCDEF",
                                 ".torvane-appendabcdef",
                                 ".torvane-tail-",
                                 ".torvane-tail-abc",
                                 ".torvane-tail-abcdefg",
                                 ".torvane-tailabcdef",
                                 ".torvane_abcdef",
                                 ".hidden",
                                 ".directory",
                                 ".gb",
                                 "save.sav"})
            QTest::newRow(name) << QString::fromLatin1(name);
        QTest::newRow("letters of other languages") << QStringLiteral(".torvane-añbcd");
    }
    void everything_else_stays() {
        QFETCH(QString, name);
        folder->write(name, "content");
        sweep();
        QCOMPARE(folder->read(name), QByteArray("content"));
    }
    void anything_but_a_file_stays_whatever_its_name() {
        for (const char* name : {".torvane-folder", ".torvane-append-folder"}) {
            folder->makeFolder(QString::fromLatin1(name));
            folder->write(QString::fromLatin1(name) + QStringLiteral("/.torvane-inside"), "x");
        }
        write("a.gb", rom);
        for (const char* name : {".torvane-tolink", ".torvane-append-tolink"}) softLink("a.gb", name);
        softLink("nowhere", ".torvane-nowher");
        QCOMPARE(mkfifo(folder->native(".torvane-apipe0").constData(), 0600), 0);
        const QStringList names = folder->entries();
        sweep();
        expectNames(names);
        expectNames({QStringLiteral(".torvane-inside")}, ".torvane-folder");
        QVERIFY(S_ISFIFO(infoOf(".torvane-apipe0").st_mode)); // the list of names omits these two
        QVERIFY(S_ISLNK(infoOf(".torvane-nowher").st_mode));
        QCOMPARE(read("a.gb"), rom);
    }
    void subfolders_are_not_swept() {
        write("sub/.torvane-abcdef", "x");
        sweep();
        QVERIFY(QFile::exists(at("sub/.torvane-abcdef")));
    }
    void a_missing_or_unreadable_folder_is_left_alone() {
        Leftovers::sweep(at("gone"));
        Leftovers::sweep(QString());
        Leftovers::sweep(write("file", "x"));
        write("shut/.torvane-abcdef", "x");
        write("locked/.torvane-abcdef", "x");
        setMode("shut", 0);
        setMode("locked", 0555);
        {
            const OrdinaryUser user;
            Leftovers::sweep(at("shut"));
            Leftovers::sweep(at("locked"));
        }
        setMode("shut", 0755);
        setMode("locked", 0755);
        QVERIFY(QFile::exists(at("shut/.torvane-abcdef")));
        QVERIFY(QFile::exists(at("locked/.torvane-abcdef")));
    }
    void a_folder_is_found_without_regard_to_case() {
        write("Roms/.torvane-abcdef", "x");
        Leftovers::sweep(folder->path() + QStringLiteral("\\ROMS"));
        expectNames({}, "Roms");
    }

    void files_of_a_living_run_stay_and_those_of_a_killed_one_are_removed_data() {
        QTest::addColumn<QByteArray>("kind");
        QTest::newRow("replacement") << HiddenFile::replacement;
        QTest::newRow("note") << HiddenFile::tailNote;
        QTest::newRow("note of an earlier version") << HiddenFile::appendNote;
    }
    void files_of_a_living_run_stay_and_those_of_a_killed_one_are_removed() {
        QFETCH(QByteArray, kind);
        OtherProgram run([&] {
            const auto* open = new Folder(folder->native("."));
            new HiddenFile(*open, kind); // until the process ends
        });
        const QStringList names = folder->entries();
        QCOMPARE(names.size(), 1);
        sweep();
        expectNames(names);
        run.kill();
        sweep();
        expectNames({});
    }
    void an_append_that_is_under_way_is_not_disturbed() {
        write("a.gb", rom);
        const Folder open(folder->native("."));
        const TailNote note(open, {game});
        write("a.gb", rom + line.first(4));
        sweep();
        QCOMPARE(read("a.gb"), rom + line.first(4));
        QCOMPARE(folder->entries().size(), 2);
    }
    void hidden_files_that_are_made_during_sweeps_are_not_removed() {
        const QByteArray path = folder->native(".");
        const pid_t sweeping = fork();
        if (sweeping == 0) {
            for (;;) Leftovers::sweep(QString::fromUtf8(path));
        }
        const Folder open(path);
        bool isThere = true;
        for (int i = 0; i < 500; ++i) {
            HiddenFile file(open, HiddenFile::replacement);
            file.write("x");
            struct stat info {};
            isThere = isThere && open.stat(file.name(), info);
        }
        kill(sweeping, SIGKILL);
        waitpid(sweeping, nullptr, 0);
        QVERIFY(isThere);
    }

    void half_a_line_is_cut_and_a_whole_one_stays() {
        for (qsizetype length = 0; length <= line.size(); ++length) {
            write("a.gb", rom + line.first(length));
            leaveNote();
            sweep();
            QCOMPARE(read("a.gb"), length == line.size() ? rom + line : rom);
            expectNames({QStringLiteral("a.gb")});
        }
    }
    void one_note_restores_the_ends_of_several_files() {
        write("a.gb", rom + line.first(3));
        write("b.gb", rom + line.first(3) + " old end");
        write("c.gb", rom + line);
        leaveNote({game,
                   {"gone.gb", 0, rom.size(), {}, line},
                   {"b.gb", 0, rom.size(), "the old end", line},
                   {"c.gb", 0, rom.size(), "the old end", line}});
        sweep();
        QCOMPARE(read("a.gb"), rom);
        QCOMPARE(read("b.gb"), rom + "the old end");
        QCOMPARE(read("c.gb"), rom + line);
        expectNames({QStringLiteral("a.gb"), QStringLiteral("b.gb"), QStringLiteral("c.gb")});
    }
    void a_damaged_note_changes_nothing_and_is_removed() {
        const QByteArray half = rom + line.first(3);
        write("a.gb", half);
        const QByteArray whole = folder->read(leaveNote());
        sweep();
        QCOMPARE(read("a.gb"), rom);
        write("a.gb", half);
        for (qsizetype i = 0; i < whole.size(); ++i) {
            QByteArray damaged = whole;
            damaged[i] = static_cast<char>(~damaged[i]);
            write(".torvane-tail-abcdef", damaged);
            sweep();
            QCOMPARE(read("a.gb"), half);
            expectNames({QStringLiteral("a.gb")});
        }
    }
    void a_note_on_a_path_or_a_missing_file_changes_nothing_and_is_removed() {
        const QByteArray half = rom + line.first(3);
        write("sub/a.gb", half);
        leaveNote({{"sub/a.gb", 0, rom.size(), {}, line}});
        leaveNote({{"../a.gb", 0, rom.size(), {}, line}});
        leaveNote({{"gone.gb", 0, rom.size(), {}, line}});
        QCOMPARE(folder->entries().size(), 4);
        sweep();
        QCOMPARE(read("sub/a.gb"), half);
        expectNames({QStringLiteral("sub")});
    }
    void several_notes_are_handled_independently() {
        write("a.gb", rom + line.first(3));
        write("b.gb", rom + line);
        leaveNote();
        leaveNote({{"b.gb", 0, rom.size(), {}, line}});
        write(".torvane-tail-abcdef", "damaged");
        sweep();
        QCOMPARE(read("a.gb"), rom);
        QCOMPARE(read("b.gb"), rom + line);
        expectNames({QStringLiteral("a.gb"), QStringLiteral("b.gb")});
    }
    void a_note_that_can_not_be_used_yet_waits_for_a_later_start() {
        const QByteArray half = rom + line.first(3);
        write("a.gb", half);
        const QString note = leaveNote();
        setMode(".", 0777);
        setMode("a.gb", 0444);
        if (geteuid() == 0) setOwner(note.toLatin1().constData(), 65534, getegid());
        {
            const OrdinaryUser user;
            sweep();
        }
        QVERIFY(QFile::exists(folder->path(note)));
        QCOMPARE(read("a.gb"), half);
        setMode("a.gb", 0666);
        {
            const OrdinaryUser user;
            sweep();
        }
        QCOMPARE(read("a.gb"), rom);
        expectNames({QStringLiteral("a.gb")});
    }
};

TORVANE_APPLESS_TEST(LeftoversTest)
#include "LeftoversTest.moc"
