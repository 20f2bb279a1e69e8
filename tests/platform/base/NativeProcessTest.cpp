// SPDX-License-Identifier: MIT
// Starting real programs: what counts as one, what it receives, and that the start waits for its end.
#include "platform/base/NativeProcess.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <sys/wait.h>

using namespace torvane;

class NativeProcessTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    NativeProcess processes;

    QByteArray script(const char* name, const QByteArray& text, mode_t mode = 0755) const {
        folder->writeNative(name, text);
        folder->setMode(QString::fromUtf8(name), mode);
        return folder->native(name);
    }
    QByteArray out(const char* name = "out") const { return folder->read(QString::fromLatin1(name)); }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void a_program_is_an_executable_file() {
        QVERIFY(processes.isProgram("/bin/sh"));
        QVERIFY(processes.isProgram(script("ours", "#!/bin/sh\n")));
        QCOMPARE(symlink("ours", folder->native("link").constData()), 0);
        QVERIFY(processes.isProgram(folder->native("link")));
        QVERIFY(!processes.isProgram(script("text", "#!/bin/sh\n", 0644)));
        QVERIFY(!processes.isProgram(folder->native("gone")));
        QVERIFY(!processes.isProgram(QFile::encodeName(folder->path())));
        QVERIFY(!processes.isProgram("/dev/null"));
        QVERIFY(!processes.isProgram(QByteArray()));
    }
    void a_program_that_only_others_may_execute_does_not_count() {
        const QByteArray path = script("ours", "#!/bin/sh\n", 0700);
        if (geteuid() != 0) QSKIP("needs the rights to become another user");
        const OrdinaryUser user;
        QVERIFY(!processes.isProgram(path));
    }
    void arguments_arrive_separately_and_unchanged() {
        const QByteArray path =
            script("show", "#!/bin/sh\nfor a; do printf '<%s>' \"$a\"; done > \"${0%show}out\"\n");
        processes.runAndWait(path, {"a b", "", "$(touch x)", "`id`", "\"q'", "*", "%s", "\\", "-x", "a\nb",
                                    "\xF1\xFF", ";", "&", "|"});
        QCOMPARE(out(),
                 QByteArray("<a b><><$(touch x)><`id`><\"q'><*><%s><\\><-x><a\nb><\xF1\xFF><;><&><|>"));
        QCOMPARE(folder->entries(), (QStringList{QStringLiteral("out"), QStringLiteral("show")}));
    }
    void the_program_s_own_path_is_its_first_argument() {
        const QByteArray path = script("show", "#!/bin/sh\nprintf %s \"$0\" > \"${0%show}out\"\n");
        processes.runAndWait(path, {});
        QCOMPARE(out(), path);
    }
    void the_start_returns_only_when_the_program_has_ended() {
        const QByteArray path = script("slow", "#!/bin/sh\nsleep 0.4\necho done > \"${0%slow}out\"\n");
        QElapsedTimer clock;
        clock.start();
        processes.runAndWait(path, {});
        QVERIFY(clock.elapsed() >= 400);
        QCOMPARE(out(), QByteArray("done\n"));
    }
    void it_does_not_matter_how_the_program_ends() {
        processes.runAndWait(script("fails", "#!/bin/sh\nexit 7\n"), {});
        processes.runAndWait(script("dies", "#!/bin/sh\nkill -9 $$\n"), {});
        // No zombie is left.
        QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    }
    void a_signal_during_the_wait_does_not_end_it() {
        struct sigaction quiet {};
        struct sigaction previous {};
        quiet.sa_handler = [](int) {};
        sigaction(SIGUSR1, &quiet, &previous);
        const QByteArray path =
            script("slow", "#!/bin/sh\nkill -USR1 $PPID\nsleep 0.2\necho done > \"${0%slow}out\"\n");
        processes.runAndWait(path, {});
        sigaction(SIGUSR1, &previous, nullptr);
        QCOMPARE(out(), QByteArray("done\n"));
    }
    void environment_and_working_folder_are_ours() {
        const QByteArray path =
            script("show", "#!/bin/sh\nprintf '%s|%s' \"$TORVANE_TEST\" \"$(pwd)\" > \"${0%show}out\"\n");
        folder->makeFolder(QStringLiteral("work"));
        const QString previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder->path(QStringLiteral("work"))));
        qputenv("TORVANE_TEST", "a 'b\" c");
        processes.runAndWait(path, {});
        qunsetenv("TORVANE_TEST");
        QVERIFY(QDir::setCurrent(previous));
        QCOMPARE(out(), "a 'b\" c|" + folder->native("work"));
    }
    void an_inheritable_handle_is_inherited() {
        const QByteArray path = script("speak", "#!/bin/sh\necho spoken >&\"$1\"\n");
        FILE* inherited = std::fopen(folder->native("out").constData(), "w");
        processes.runAndWait(path, {QByteArray::number(fileno(inherited))});
        std::fclose(inherited);
        QCOMPARE(out(), QByteArray("spoken\n"));
    }
    void an_executable_text_without_an_interpreter_is_not_run_by_a_shell() {
        const QByteArray touch = "touch '" + folder->native("x") + "'\n";
        const QByteArray path = script("game.gb", touch);
        QVERIFY(processes.isProgram(path));
        processes.runAndWait(path, {});
        QVERIFY(!QFile::exists(folder->path(QStringLiteral("x"))));
        // The same text with an interpreter line runs: only that first line makes the difference.
        processes.runAndWait(script("game.sh", "#!/bin/sh\n" + touch), {});
        QVERIFY(QFile::exists(folder->path(QStringLiteral("x"))));
    }
    void a_start_that_fails_returns_at_once_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("missing interpreter") << QByteArray("a") << QByteArray("#!/no/such/interpreter\n");
        QTest::newRow("empty file") << QByteArray("a") << QByteArray();
        QTest::newRow("no text at all") << QByteArray("a")
                                        << QByteArray("\xFF\x00\x7F"
                                                      "ELF",
                                                      6);
        QTest::newRow("broken executable") << QByteArray("a")
                                           << QByteArray("\x7F"
                                                         "ELF\x02\x01\x01");
    }
    void a_start_that_fails_returns_at_once() {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, text);
        processes.runAndWait(script(name.constData(), text), {"argument"});
        QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1);
    }
    void anything_but_a_program_is_not_started_and_does_not_hang() {
        processes.runAndWait(script("text", "#!/bin/sh\ntouch \"${0%text}x\"\n", 0644), {});
        processes.runAndWait(folder->native("gone"), {});
        processes.runAndWait(QFile::encodeName(folder->path()), {});
        processes.runAndWait(QByteArray(), {});
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0777), 0);
        processes.runAndWait(folder->native("pipe"), {});
        QVERIFY(!QFile::exists(folder->path(QStringLiteral("x"))));
    }
    void a_bare_name_is_not_searched_for_in_the_path() {
        const QByteArray previous = qgetenv("PATH");
        script("onlyhere", "#!/bin/sh\ntouch \"${0%onlyhere}x\"\n");
        qputenv("PATH", QFile::encodeName(folder->path()) + ':' + previous);
        processes.runAndWait("onlyhere", {});
        qputenv("PATH", previous);
        QVERIFY(!QFile::exists(folder->path(QStringLiteral("x"))));
    }
};

TORVANE_APPLESS_TEST(NativeProcessTest)
#include "NativeProcessTest.moc"
