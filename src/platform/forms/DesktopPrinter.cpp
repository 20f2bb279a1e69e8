// SPDX-License-Identifier: MIT
// Finding the printer and handing the document over.
#include "DesktopPrinter.h"
#include "../base/RuntimeFailure.h"
#include "HeldInput.h"
#include "PagePdf.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QTimer>

namespace torvane {

namespace {
using std::chrono::milliseconds;

constexpr milliseconds longestTransfer = std::chrono::minutes(1);

// Runs a command with these bytes as its input. False if it has not ended by the limit, which ends it.
// Windows are painted meanwhile, and what the user clicks and types is dropped: it was meant for a window
// that could answer.
bool endsInTime(QProcess& command, const QStringList& words, const QByteArray& input, milliseconds limit) {
    HeldInput held;
    QEventLoop loop;
    QObject::connect(&command, &QProcess::stateChanged, &loop, [&](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning) loop.quit();
    });
    command.setStandardOutputFile(QProcess::nullDevice());
    command.setStandardErrorFile(QProcess::nullDevice());
    command.start(words.front(), words.sliced(1));
    command.write(input);
    command.closeWriteChannel();
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    if (command.state() != QProcess::NotRunning) loop.exec();
    held.forget();
    if (command.state() == QProcess::NotRunning) return true;
    command.kill();
    command.waitForFinished();
    return false;
}

RuntimeFailure failureOfSpooler() {
    return RuntimeFailure(RuntimeFailure::printer).about(QStringLiteral("CUPS"));
}

QPrinterInfo chosenPrinter() {
    const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
    if (!standard.isNull()) return standard;
    return QPrinterInfo::printerInfo(QPrinterInfo::availablePrinterNames().value(0));
}

// The printer's paper with the margins that it can't print on; invalid if it knows of no paper.
QPageLayout layoutOf(const QPrinterInfo& info) {
    const QPageSize paper = info.defaultPageSize();
    if (!paper.isValid()) return {};
    QPrinter printer(info);
    printer.setPageSize(paper);
    return printer.pageLayout();
}

// QPrinter ignores the spooler's answer (Qt 6.4): nobody would hear of a printer that has vanished or of a
// full spool. This command reports both, needs no temporary file, and applies the user's own options.
bool spool(const QString& printerName, const QString& paper, const QByteArray& document) {
    QProcess command;
    const bool hasEnded = endsInTime(command,
                                     {QStringLiteral("lp"), QStringLiteral("-d"), printerName,
                                      QStringLiteral("-t"), QGuiApplication::applicationDisplayName(),
                                      QStringLiteral("-o"), QStringLiteral("media=") + paper},
                                     document, longestTransfer);
    return hasEnded && command.error() == QProcess::UnknownError &&
           command.exitStatus() == QProcess::NormalExit && command.exitCode() == 0;
}
} // namespace

// Qt asks for printers through libcups (2.4), which waits a minute for each of several answers. A command
// that asks the same spooler can be ended. Where there is no such command, there is none to print with
// either.
bool DesktopPrinter::reachesSpooler() const {
    QProcess question;
    if (!endsInTime(question, {QStringLiteral("lpstat"), QStringLiteral("-d")}, {}, m_patience)) {
        throw failureOfSpooler();
    }
    return question.error() != QProcess::FailedToStart;
}

bool DesktopPrinter::isThere() {
    return reachesSpooler() && !QPrinterInfo::availablePrinterNames().isEmpty();
}

void DesktopPrinter::print(const PrintedPage& page) {
    if (!reachesSpooler()) throw failureOfSpooler();
    const QPrinterInfo info = chosenPrinter();
    aboutFile(info.printerName(), [&] {
        const QPageLayout layout = info.isNull() ? QPageLayout() : layoutOf(info);
        const QByteArray document = pdfOf(page, layout);
        if (!spool(info.printerName(), layout.pageSize().key(), document)) {
            throw RuntimeFailure(RuntimeFailure::printer);
        }
    });
}

} // namespace torvane
