// SPDX-License-Identifier: MIT
// What the command line asks for, and the answers that need no window.
#include "app/CommandLine.h"
#include "support/OtherProgram.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <cstdio>

using namespace torvane;

class CommandLineTest : public QObject {
    Q_OBJECT

    using Wish = CommandLine::Wish;
    static CommandLine read(const QByteArrayList& arguments) { return CommandLine::read(arguments); }
    static void expectRefusal(const QByteArrayList& arguments, const QByteArray& fault) {
        const CommandLine line = read(arguments);
        QCOMPARE(line.wish, Wish::refusal);
        QCOMPARE(line.fault, fault);
    }

    // What a process prints that answers these arguments, and its exit status.
    struct Answer {
        QByteArray output;
        QByteArray errors;
        int status;
    };
    static Answer answerTo(const QByteArrayList& arguments) {
        const TestFolder folder;
        const int status = inOtherProgram([&] {
            if (std::freopen(folder.native("output").constData(), "w", stdout) == nullptr) _exit(98);
            if (std::freopen(folder.native("errors").constData(), "w", stderr) == nullptr) _exit(98);
            const int ended = read(arguments).answer();
            std::fflush(nullptr);
            _exit(ended);
        });
        return {folder.read(QStringLiteral("output")), folder.read(QStringLiteral("errors")),
                WIFEXITED(status) ? WEXITSTATUS(status) : -1};
    }

private slots:
    void no_arguments_ask_for_nothing() {
        const CommandLine line = read({});
        QCOMPARE(line.wish, Wish::start);
        QVERIFY(line.folder.isEmpty() && line.files.isEmpty());
    }
    void files_keep_their_order_and_their_bytes() {
        QByteArray all;
        for (int byte = 255; byte > 0; --byte) all += static_cast<char>(byte);
        const QByteArrayList names{"b.gb", all, "a\\b.gb", "a b.gb", "caf\xE9.gb", "-", "%f", "\n"};
        QCOMPARE(read(names).files, names);
    }
    void a_thousand_files_are_taken() {
        QByteArrayList names;
        for (int i = 0; i < 1000; ++i) names.append("game " + QByteArray::number(i) + ".gb");
        QCOMPARE(read(names).files, names);
    }
    void the_folder_is_given_in_either_way_with_any_bytes() {
        QCOMPARE(read({"--folder", "a\xFF b"}).folder, QByteArray("a\xFF b"));
        QCOMPARE(read({"--folder=a=b"}).folder, QByteArray("a=b"));
        QCOMPARE(read({"--folder", "--help"}).folder, QByteArray("--help"));
        QCOMPARE(read({"--folder", "a", "--folder=b"}).folder, QByteArray("b"));
    }
    void options_may_follow_files() {
        const CommandLine line = read({"a.gb", "--folder", "x", "b.gb"});
        QCOMPARE(line.files, (QByteArrayList{"a.gb", "b.gb"}));
        QCOMPARE(line.folder, QByteArray("x"));
    }
    void everything_after_two_dashes_is_a_file() {
        const CommandLine line = read({"a.gb", "--", "--help", "--", "-x", "--folder"});
        QCOMPARE(line.wish, Wish::start);
        QCOMPARE(line.files, (QByteArrayList{"a.gb", "--help", "--", "-x", "--folder"}));
    }
    void two_dashes_alone_ask_for_nothing() {
        const CommandLine line = read({"--"});
        QCOMPARE(line.wish, Wish::start);
        QCOMPARE(line.files, QByteArrayList());
    }
    void the_first_question_decides() {
        QCOMPARE(read({"a.gb", "--help", "--nonsense"}).wish, Wish::help);
        QCOMPARE(read({"--version", "--help"}).wish, Wish::version);
        QCOMPARE(read({"--nonsense", "--help"}).wish, Wish::refusal);
        QCOMPARE(read({"--help", "--nonsense"}).fault, QByteArray());
        expectRefusal({"--nonsense", "--folder"}, "unknown option '--nonsense'");
    }
    void what_can_not_be_understood_is_refused_data() {
        QTest::addColumn<QByteArrayList>("arguments");
        QTest::addColumn<QByteArray>("fault");
        const auto row = [](const char* name, const QByteArrayList& arguments, const char* fault) {
            QTest::newRow(name) << arguments << QByteArray(fault);
        };
        row("unknown", {"--nonsense"}, "unknown option '--nonsense'");
        row("unknown with a value", {"--non=sense"}, "unknown option '--non=sense'");
        row("short", {"-h"}, "unknown option '-h'");
        row("an option of Qt", {"-platform", "offscreen"}, "unknown option '-platform'");
        row("a beginning", {"--fold", "x"}, "unknown option '--fold'");
        row("control characters", {"--\x7F\x1B[2J\n"}, "unknown option '--?\?[2J?'");
        row("bytes of other encodings", {"--caf\xC3\xA9\xFF"}, "unknown option '--caf\xC3\xA9\xFF'");
        row("no folder", {"--folder"}, "option '--folder' needs a path");
        row("empty folder", {"--folder", ""}, "option '--folder' needs a path");
        row("empty folder in one word", {"--folder="}, "option '--folder' needs a path");
        row("help with a value", {"--help=me"}, "option '--help' takes no value");
        row("version with a value", {"--version="}, "option '--version' takes no value");
        row("empty file", {"a.gb", ""}, "the name of a file is empty");
        row("empty file after two dashes", {"--", ""}, "the name of a file is empty");
    }
    void what_can_not_be_understood_is_refused() {
        QFETCH(QByteArrayList, arguments);
        QFETCH(QByteArray, fault);
        expectRefusal(arguments, fault);
    }
    void what_a_session_manager_adds_is_ignored() {
        const CommandLine line = read({"-session", "10-1_2", "a.gb"});
        QCOMPARE(line.wish, Wish::start);
        QCOMPARE(line.files, QByteArrayList{"a.gb"});
        QCOMPARE(read({"-session"}).wish, Wish::start);
    }

    // Answers

    void help_and_version_are_printed() {
        const Answer help = answerTo({"--help"});
        QVERIFY(help.output.startsWith("Usage: torvane ") && help.output.contains("--folder"));
        QCOMPARE(help.errors, QByteArray());
        QCOMPARE(help.status, 0);
        const Answer version = answerTo({"--version"});
        QCOMPARE(version.output, QByteArray("torvane " TORVANE_VERSION "\n"));
        QCOMPARE(version.status, 0);
    }
    void a_refusal_names_the_fault_and_the_help_on_standard_error() {
        const Answer refusal = answerTo({"--nonsense"});
        QCOMPARE(refusal.errors, QByteArray("torvane: unknown option '--nonsense'\nTry 'torvane --help'.\n"));
        QCOMPARE(refusal.output, QByteArray());
        QCOMPARE(refusal.status, 2);
    }
    void an_answer_that_can_not_be_written_is_a_failure() {
        const int status = inOtherProgram([] {
            if (std::freopen("/dev/full", "w", stdout) == nullptr) _exit(98);
            _exit(read({"--help"}).answer());
        });
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 1);
    }
};

TORVANE_APPLESS_TEST(CommandLineTest)
#include "CommandLineTest.moc"
