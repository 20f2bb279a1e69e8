// SPDX-License-Identifier: MIT
// The next start has the command line and the environment of an ordinary one.
#include "app/NextStart.h"
#include "support/OtherProgram.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <cstdio>

using namespace torvane;
using namespace Qt::StringLiterals;

class NextStartTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    // Stands for the program, and says what it has been started with: words, variables, open files.
    QByteArray program() const {
        folder->write(u"program"_s,
                      "#!/bin/sh\n"
                      "printf '<%s>' \"$@\" >words\n"
                      "echo \"${DESKTOP_STARTUP_ID-none} ${XDG_ACTIVATION_TOKEN-none}\" >notice\n"
                      "[ ! -e /proc/self/fd/77 ] && [ ! -e /proc/self/fd/700 ] && exit 5\n");
        folder->setMode(u"program"_s, 0755);
        return folder->native("program");
    }
    int statusOf(const NextStart& next, const StartCall& call) const {
        return inOtherProgram([&] {
            if (chdir(folder->native(".").constData()) != 0) _exit(98);
            qputenv("DESKTOP_STARTUP_ID", "old id");
            qputenv("XDG_ACTIVATION_TOKEN", "old token");
            dup2(STDOUT_FILENO, 77);
            dup2(STDOUT_FILENO, 700);
            if (std::freopen("errors", "w", stderr) == nullptr) _exit(98);
            next.begin(call);
            std::fflush(nullptr);
            _exit(6);
        });
    }
    void expectStart(const NextStart& next, const StartCall& call, const QByteArray& words) const {
        const int status = statusOf(next, call);
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 5);
        QCOMPARE(folder->read(u"words"_s), words);
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void it_opens_the_files_in_their_order() {
        expectStart({program(), {}}, {{}, {}, {"/b", "/a \xFF\n", "/--help"}},
                    "<--></b></a \xFF\n></--help>");
    }
    void it_has_the_folder_that_the_user_has_given() {
        expectStart({program(), "a \xFF"}, {{}, {}, {"/b"}}, "<--folder><a \xFF><--></b>");
    }
    void it_answers_the_notice_of_the_call() {
        expectStart({program(), {}}, {"an id", "a token", {}}, "<-->");
        QCOMPARE(folder->read(u"notice"_s), QByteArray("an id a token\n"));
    }
    void it_answers_no_notice_twice() {
        expectStart({program(), {}}, {}, "<-->");
        QCOMPARE(folder->read(u"notice"_s), QByteArray("none none\n"));
    }
    void a_program_that_is_gone_is_reported() {
        const int status = statusOf({folder->native("gone"), {}}, {});
        QCOMPARE(WEXITSTATUS(status), 6);
        QVERIFY(folder->read(u"errors"_s).endsWith("/gone: No such file or directory\n"));
    }
    void it_is_the_running_executable() {
        const NextStart next = NextStart::ofThisProgram("folder");
        QCOMPARE(QFile::decodeName(next.program), QFile::symLinkTarget(u"/proc/self/exe"_s));
        QCOMPARE(next.folder, QByteArray("folder"));
    }
};

TORVANE_APPLESS_TEST(NextStartTest)
#include "NextStartTest.moc"
