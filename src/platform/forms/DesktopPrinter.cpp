// SPDX-License-Identifier: MIT
// Finding the printer and handing the document over.
#include "DesktopPrinter.h"
#include "../base/RuntimeFailure.h"
#include "PagePdf.h"

#include <QGuiApplication>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>

namespace torvane {

namespace {
constexpr int longestWait = 60000; // ms for the spooler to accept a document

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
    command.setStandardOutputFile(QProcess::nullDevice());
    command.setStandardErrorFile(QProcess::nullDevice());
    command.start(QStringLiteral("lp"), {QStringLiteral("-d"), printerName, QStringLiteral("-t"),
                                         QGuiApplication::applicationDisplayName(), QStringLiteral("-o"),
                                         QStringLiteral("media=") + paper});
    command.write(document);
    command.closeWriteChannel();
    return command.waitForFinished(longestWait) && command.exitStatus() == QProcess::NormalExit &&
           command.exitCode() == 0;
}
} // namespace

bool DesktopPrinter::isThere() { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

void DesktopPrinter::print(const PrintedPage& page) {
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
