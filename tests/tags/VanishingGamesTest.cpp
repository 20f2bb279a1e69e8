// SPDX-License-Identifier: MIT
// Games that vanish between the look into their folder and the reading: each is reported, and the others are
// done.
#include "HeldGame.h"
#include "TagsProgram.h"
#include "support/Archive.h"
#include "support/TestMain.h"

#include <sched.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class VanishingGamesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void remove(const char* name) const {
        QCOMPARE(unlink((program->folder.native("home/roms/") + name).constData()), 0);
    }
    // What a run of the library does if these vanish while it waits for another one.
    ProgramRun runWhileTheyVanish(const QByteArrayList& command, const char* waitsFor,
                                  const std::vector<const char*>& names) const {
        HeldGame held(program->folder.native("home/roms/") + waitsFor);
        const MemoryFile output;
        const MemoryFile errors;
        const pid_t child = program->start(QByteArrayList{"--folder", "home"} + command, output.descriptor(),
                                           errors.descriptor());
        const bool isInTime = held.isReached();
        for (const char* name : names) remove(name);
        held.release();
        const int status = TagsProgram::endOf(child);
        return isInTime ? ProgramRun{status, output.content(), errors.content()} : ProgramRun();
    }
    static QByteArray vanished(const QByteArray& name) {
        return "torvane-tags: " + name + ": it doesn’t exist\n";
    }

private slots:
    void init() {
        program = std::make_unique<TagsProgram>();
        // On one processor games are read one after the other.
        program->prepare = [] {
            cpu_set_t set;
            sched_getaffinity(0, sizeof set, &set);
            int last = CPU_SETSIZE - 1;
            while (!CPU_ISSET(last, &set)) --last;
            CPU_ZERO(&set);
            CPU_SET(last, &set);
            sched_setaffinity(0, sizeof set, &set);
        };
        for (const char* name : {"a.gb", "b.gb", "d.gb"})
            program->folder.writeNative(QByteArray("home/roms/") + name, taggedGame(name));
        writeArchive(program->folder.path(u"home/roms/c.zip"_s), {{u"x.gb"_s, "x"}});
        program->folder.writeNative("l.dat", "<datafile><game name=\"M\"><rom crc=\"1\"/></game></datafile>");
    }

    void it_is_reported_and_the_others_are_done_data() {
        QTest::addColumn<QByteArrayList>("command");
        QTest::addColumn<QByteArray>("remark");
        const auto add = [](const char* name, const QByteArrayList& more = {},
                            const QByteArray& remark = {}) {
            QTest::newRow(name) << QByteArrayList{name} + more << remark;
        };
        add("list", {"--json"});
        add("hash", {"--json"});
        add("verify", {"--json"});
        add("export");
        add("identify", {"--json", "--dat", "l.dat"},
            "torvane-tags: 2 files could not be read: what they hold counts as missing\n");
    }
    void it_is_reported_and_the_others_are_done() {
        QFETCH(QByteArrayList, command);
        QFETCH(QByteArray, remark);
        const ProgramRun run = runWhileTheyVanish(command, "a.gb", {"b.gb", "c.zip"});
        const ProgramRun after = program->runHere(command); // with what is left
        QCOMPARE(run.errors, vanished("b.gb") + vanished("c.zip") + remark + after.errors);
        QCOMPARE(run.status, 1);
        QCOMPARE(run.output, after.output);
        for (const char* name : {"a.gb", "d.gb"}) QVERIFY(run.output.contains(name));
    }
    void what_vanishes_before_twins_are_compared_is_reported() {
        const ProgramRun run = runWhileTheyVanish({"verify", "--json"}, "d.gb", {"b.gb"});
        QVERIFY2(run.errors.startsWith(vanished("b.gb")), run.errors);
        QCOMPARE(run.status, 1);
        const auto twin = [](const QByteArray& name) {
            return "\"file\":\"" + name + "\",\"what\":\"same image as another\"";
        };
        QVERIFY2(run.output.contains(twin("d.gb")), run.output);
        QVERIFY(!run.output.contains(twin("b.gb")));
    }
};

TORVANE_APPLESS_TEST(VanishingGamesTest)
#include "VanishingGamesTest.moc"
