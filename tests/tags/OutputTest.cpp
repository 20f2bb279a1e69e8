// SPDX-License-Identifier: MIT
// Output in large pieces, and what becomes of it when nobody takes it; messages and the bar on a terminal.
#include "tags/rows/Output.h"
#include "MemoryFile.h"
#include "support/TestMain.h"
#include "tags/session/Reports.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <thread>

using namespace torvane;
using namespace std::chrono_literals;

class OutputTest : public QObject {
    Q_OBJECT

    int terminal = -1;
    int program = -1;

    // The system brings what was written to the other end in pieces, a moment later.
    QByteArray onTerminal() const {
        QByteArray shown;
        std::array<char, 1000> piece{};
        pollfd awaited{terminal, POLLIN, 0};
        while (poll(&awaited, 1, 20) == 1) {
            const ssize_t count = read(terminal, piece.data(), piece.size());
            if (count <= 0) break;
            shown.append(piece.data(), count);
        }
        return shown;
    }

private slots:
    void init() {
        QCOMPARE(openpty(&terminal, &program, nullptr, nullptr, nullptr), 0);
        fcntl(terminal, F_SETFL, O_NONBLOCK);
        std::signal(SIGPIPE, SIG_IGN);
    }
    void cleanup() {
        close(terminal);
        close(program);
    }

    void all_bytes_arrive_in_their_order() {
        const MemoryFile file;
        Output output(file.descriptor());
        QByteArray expected;
        for (int i = 0; i < 50000; ++i) {
            const QByteArray line = QByteArray::number(i) + '\n';
            expected += line;
            output.write(line);
        }
        output.flush();
        QCOMPARE(file.content(), expected);
        QCOMPARE(output.error(), 0);
    }
    void a_failure_is_kept_and_ends_the_writing() {
        const int full = open("/dev/full", O_WRONLY);
        Output output(full);
        output.write("x");
        QCOMPARE(output.error(), 0);
        output.flush();
        QCOMPARE(output.error(), ENOSPC);
        close(full);
        output.write("x");
        output.flush();
        QCOMPARE(output.error(), ENOSPC);
    }
    void a_pipe_without_a_reader_is_a_failure() {
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        close(ends[0]);
        Output output(ends[1]);
        output.write(QByteArray(100000, 'x'));
        QCOMPARE(output.error(), EPIPE);
        close(ends[1]);
    }
    void a_pipe_that_does_not_wait_gets_all_bytes() {
        int ends[2];
        QCOMPARE(pipe2(ends, O_NONBLOCK), 0);
        qsizetype taken = 0;
        std::thread reader([&] {
            std::array<char, 4096> some{};
            while (taken < 1000000) taken += std::max<ssize_t>(0, read(ends[0], some.data(), some.size()));
        });
        Output output(ends[1]);
        output.write(QByteArray(1000000, 'x'));
        QCOMPARE(output.error(), 0);
        reader.join();
        QCOMPARE(taken, 1000000);
        close(ends[0]);
        close(ends[1]);
    }
    void only_a_terminal_has_a_width() {
        const winsize size{24, 77, 0, 0};
        ioctl(program, TIOCSWINSZ, &size);
        QCOMPARE(Output(program).terminalWidth(), 77);
        QCOMPARE(Output(MemoryFile().descriptor()).terminalWidth(), 0);
    }

    // Messages
    void a_fault_is_one_printable_line_with_the_name() {
        const MemoryFile file;
        Reports reports(file.descriptor());
        QVERIFY(!reports.hasFaults());
        reports.fault("a\x1B\n.gb", "it is gone");
        reports.fault("b.gb", RuntimeFailure(RuntimeFailure::diskFull));
        QVERIFY(reports.hasFaults());
        QCOMPARE(file.content(), QByteArray("torvane-tags: a??.gb: it is gone\n"
                                            "torvane-tags: b.gb: the disk is full\n"));
    }

    // The bar
    void work_that_is_over_soon_has_no_bar() {
        Reports reports(program);
        reports.begin(2);
        reports.step();
        reports.step();
        reports.end();
        QCOMPARE(onTerminal(), QByteArray());
    }
    void work_that_takes_long_has_a_bar_on_a_terminal() {
        Reports reports(program);
        reports.begin(4);
        std::this_thread::sleep_for(550ms); // the time is what is tested
        reports.step();
        reports.step(); // it is not drawn for every file
        QCOMPARE(onTerminal(), "\r[" + QByteArray(10, '#') + QByteArray(30, '.') + "]  25 %");
        reports.end();
        QCOMPARE(onTerminal(), QByteArray("\r\x1B[K"));
    }
    void a_message_takes_the_place_of_the_bar() {
        Reports reports(program);
        reports.begin(4);
        std::this_thread::sleep_for(550ms);
        reports.step();
        onTerminal();
        reports.fault("a.gb", "gone");
        QCOMPARE(onTerminal(), QByteArray("\r\x1B[Ktorvane-tags: a.gb: gone\r\n"));
    }
    void a_pipe_gets_no_bar() {
        const MemoryFile file;
        Reports reports(file.descriptor());
        reports.begin(1);
        std::this_thread::sleep_for(550ms);
        reports.step();
        reports.end();
        QCOMPARE(file.content(), QByteArray());
    }
};

TORVANE_APPLESS_TEST(OutputTest)
#include "OutputTest.moc"
