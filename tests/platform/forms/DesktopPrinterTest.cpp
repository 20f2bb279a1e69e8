// SPDX-License-Identifier: MIT
// Printing on a real spooler: what comes out of its printers, and what goes wrong.
#include "platform/forms/DesktopPrinter.h"
#include "platform/forms/PagePdf.h"
#include "support/Failing.h"
#include "support/PdfPage.h"
#include "support/PictureBytes.h"
#include "support/Spooler.h"
#include "support/TestMain.h"

#include <QLocalServer>
#include <QPushButton>

using namespace torvane;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
constexpr std::optional<int> printerFailure = RuntimeFailure::printer;
// Of the printer's paper, in pixels of the design.
constexpr QPoint printedCorner(24, 48);

// While it lives, the spooler is one that accepts connections and never answers.
class SilentSpooler {
public:
    SilentSpooler() {
        qputenv("CUPS_SERVER", m_folder.native("socket"));
        m_isOn = m_server.listen(m_folder.path(u"socket"_s));
    }
    ~SilentSpooler() { qputenv("CUPS_SERVER", m_usual); }
    SilentSpooler(const SilentSpooler&) = delete;
    SilentSpooler& operator=(const SilentSpooler&) = delete;
    bool wasAsked() const { return m_isOn && m_server.hasPendingConnections(); }

private:
    TestFolder m_folder;
    QLocalServer m_server;
    QByteArray m_usual = qgetenv("CUPS_SERVER");
    bool m_isOn = false;
};

// While it lives, a script is what the program finds as the spooler's command.
struct InsteadOfLp {
    explicit InsteadOfLp(const QByteArray& script) {
        folder.write(u"lp"_s, "#!/bin/sh\n" + script + '\n');
        folder.setMode(u"lp"_s, 0755);
        qputenv("PATH", folder.native("") + ':' + path);
    }
    ~InsteadOfLp() { qputenv("PATH", path); }
    InsteadOfLp(const InsteadOfLp&) = delete;
    InsteadOfLp& operator=(const InsteadOfLp&) = delete;

    TestFolder folder;
    const QByteArray path = qgetenv("PATH");
};
} // namespace

class DesktopPrinterTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Spooler> spooler;
    DesktopPrinter printer;
    const QImage picture = motley(160, 144);
    const PrintedPage page{u"Torvane [Señor.jpg]"_s, PictureFile(bmpOf(picture)), {300, 300}};

    void requireMeasures(const QString& file) {
        const PdfPage paper(file);
        QVERIFY2(paper.isReadable(), qPrintable(file));
        QCOMPARE(paper.text(), page.heading);
        QVERIFY(paper.shows(picture, printedCorner + QPoint(20, 20)));
        const QRect heading = paper.inked({0, 0, paper.paper().width(), printedCorner.y() + 20});
        QVERIFY(heading.left() >= printedCorner.x() && heading.left() <= printedCorner.x() + 2);
        QVERIFY(heading.top() >= printedCorner.y() && heading.height() >= 8);
        QCOMPARE(paper.inked(paper.paper()) | heading, paper.inked(paper.paper()));
        QCOMPARE(paper.inked(paper.paper()).bottom(), printedCorner.y() + 20 + 143);
    }

private slots:
    void initTestCase() {
        spooler = std::make_unique<Spooler>();
        if (!spooler->start()) {
            spooler.reset();
            qWarning(
                "No spooler can be started here: the page is printed to a PDF, and nothing else is tested.");
        }
    }
    void init() {
        if (spooler) {
            for (const char* name : {"first", "second", "raw"}) spooler->removePrinter(name);
        } else if (!QByteArrayList{"heading_and_picture_are_measured_on_the_paper",
                                   "a_spooler_that_never_answers_fails_in_time",
                                   "while_the_spooler_keeps_silent_events_are_served_and_clicks_are_dropped"}
                        .contains(QTest::currentTestFunction())) {
            QSKIP("No spooler can be started here.");
        }
    }
    void cleanupTestCase() { spooler.reset(); }

    void without_printers_there_is_none() {
        QVERIFY(!printer.isThere());
        QCOMPARE(failureOf([&] { printer.print(page); }), printerFailure);
    }
    void heading_and_picture_are_measured_on_the_paper() {
        if (!spooler) {
            const TestFolder folder;
            const QPageLayout a4(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(18, 36, 18, 36));
            requireMeasures(folder.write(u"page.pdf"_s, pdfOf(page, a4)));
            return;
        }
        QVERIFY(spooler->addPrinter("first"));
        QVERIFY(printer.isThere());
        printer.print(page);
        requireMeasures(spooler->printedBy("first"));
    }
    void the_default_printer_prints() {
        QVERIFY(spooler->addPrinter("first") && spooler->addPrinter("second"));
        spooler->makeDefault("second");
        printer.print(page);
        QVERIFY(!spooler->printedBy("second").isEmpty());
        QVERIFY(spooler->printedBy("first").isEmpty());
    }
    void the_page_has_the_size_of_the_printers_paper() {
        QVERIFY(spooler->addPrinter("first", "A5"));
        printer.print(page);
        const QSizeF size = PdfPage(spooler->printedBy("first")).size();
        QVERIFY2(qAbs(size.width() - 420) < 2 && qAbs(size.height() - 595) < 2,
                 qPrintable(u"%1 x %2"_s.arg(size.width()).arg(size.height())));
    }
    void a_printer_without_a_paper_size_fails() {
        QVERIFY(spooler->addRawPrinter("raw"));
        QVERIFY(printer.isThere());
        QCOMPARE(failureOf([&] { printer.print(page); }), printerFailure);
    }
    void a_printer_that_takes_nothing_fails() {
        QVERIFY(spooler->addPrinter("first"));
        spooler->reject("first");
        QCOMPARE(failureOf([&] { printer.print(page); }), printerFailure);
    }
    void a_failure_names_the_printer() {
        QVERIFY(spooler->addRawPrinter("raw"));
        try {
            printer.print(page);
        } catch (const RuntimeFailure& failure) {
            QCOMPARE(failure.file(), u"raw"_s);
            return;
        }
        QFAIL("no failure");
    }
    void a_printer_that_vanishes_fails() {
        QVERIFY(spooler->addPrinter("first"));
        QVERIFY(printer.isThere());
        spooler->removePrinter("first");
        QCOMPARE(failureOf([&] { printer.print(page); }), printerFailure);
    }
    void without_the_command_that_prints_it_fails() {
        QVERIFY(spooler->addPrinter("first"));
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nowhere");
        const auto failure = failureOf([&] { printer.print(page); });
        qputenv("PATH", path);
        QCOMPARE(failure, printerFailure);
    }
    void without_the_command_that_prints_there_is_no_printer() {
        QVERIFY(spooler->addPrinter("first"));
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nowhere");
        const bool isThere = printer.isThere();
        qputenv("PATH", path);
        QVERIFY(!isThere);
    }
    void a_spooler_that_never_answers_fails_in_time() {
        const SilentSpooler silent;
        DesktopPrinter impatient(200ms);
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(failureOf([&] { impatient.isThere(); }), printerFailure);
        QCOMPARE(failureOf([&] { impatient.print(page); }), printerFailure);
        QVERIFY2(clock.elapsed() < 10000, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(silent.wasAsked());
    }
    void while_the_spooler_keeps_silent_events_are_served_and_clicks_are_dropped() {
        const SilentSpooler silent;
        QPushButton button;
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        QSignalSpy clicks(&button, &QPushButton::clicked);
        bool isServed = false;
        QTimer::singleShot(50ms, this, [&] {
            isServed = true;
            QTest::mouseClick(button.windowHandle(), Qt::LeftButton);
        });
        QCOMPARE(failureOf([&] { DesktopPrinter(300ms).isThere(); }), printerFailure);
        QCoreApplication::processEvents();
        QVERIFY(isServed);
        QCOMPARE(clicks.count(), 0);
        QTest::mouseClick(button.windowHandle(), Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
    }
    void the_command_gets_the_printer_the_name_of_the_program_and_the_paper() {
        QVERIFY(spooler->addPrinter("first") && spooler->addPrinter("second", "A5"));
        spooler->makeDefault("second");
        QGuiApplication::setApplicationDisplayName(u"Señor Program"_s);
        const InsteadOfLp command("printf '%s\\n' \"$@\" >\"${0%/*}/words\"; cat >\"${0%/*}/page.pdf\"");
        printer.print(page);
        QCOMPARE(command.folder.read(u"words"_s), "-d\nsecond\n-t\nSeñor Program\n-o\nmedia=A5\n");
        QCOMPARE(PdfPage(command.folder.path(u"page.pdf"_s)).text(), page.heading);
    }
    void a_command_that_breaks_off_fails() {
        QVERIFY(spooler->addPrinter("first"));
        for (const char* end : {"cat >/dev/null; exit 1", "cat >/dev/null; kill -9 $$"}) {
            const InsteadOfLp command(end);
            QCOMPARE(failureOf([&] { printer.print(page); }), printerFailure);
        }
    }
    // The next two leave no spooler for others.
    void a_full_spool_fails() {
        spooler->stop();
        {
            const FullDisk full(60000);
            QVERIFY(spooler->start());
        }
        QVERIFY(spooler->addPrinter("first"));
        QCOMPARE(failureOf([&] {
                     printer.print({{}, PictureFile(bmpOf(motley(240, 160))), {}});
                 }),
                 printerFailure);
    }
    void without_the_spooler_there_is_no_printer() {
        QVERIFY(spooler->addPrinter("first"));
        spooler->stop();
        QVERIFY(!printer.isThere());
        QCOMPARE(failureOf([&] { printer.print(page); }), printerFailure);
    }
};

TORVANE_TEST(DesktopPrinterTest)
#include "DesktopPrinterTest.moc"
