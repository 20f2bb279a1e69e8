// SPDX-License-Identifier: MIT
// A print spooler of the test's own: cupsd with a folder and a socket of its own, which this process and its
// children use instead of the system's. Its printers write what they print into files.
#pragma once

#include "CommandOutput.h"
#include "TestFolder.h"

#include <QElapsedTimer>

namespace torvane {

class Spooler {
public:
    ~Spooler() { stop(); }

    /// False if the spooler can't be started here, as without Debian's packages cups and cups-filters.
    bool start() {
        m_folder.write(QStringLiteral("root/cups-files.conf"), files());
        m_folder.write(QStringLiteral("root/cupsd.conf"), rules());
        for (const char* name : {"state", "cache", "spool/tmp", "paper"})
            m_folder.makeFolder(QString::fromLatin1(name));
        qputenv("CUPS_SERVER", m_folder.native("socket"));
        m_daemon.setProcessChannelMode(QProcess::MergedChannels);
        m_daemon.start(QStringLiteral("/usr/sbin/cupsd"),
                       {QStringLiteral("-f"), QStringLiteral("-c"),
                        m_folder.path(QStringLiteral("root/cupsd.conf")), QStringLiteral("-s"),
                        m_folder.path(QStringLiteral("root/cups-files.conf"))});
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < 20000 && m_daemon.state() != QProcess::NotRunning;) {
            if (outputOf({"lpstat", "-r"}).contains("is running")) return true;
            m_daemon.waitForFinished(50);
        }
        return false;
    }
    void stop() {
        m_daemon.terminate();
        if (!m_daemon.waitForFinished(10000)) m_daemon.kill();
    }

    /// A PDF printer. Its paper has margins of 18 points at the sides and 36 points above and below.
    bool addPrinter(const char* name, const char* paper = "A4") const {
        return add(name, {"-P", "/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd", "-o",
                          QByteArray("PageSize=") + paper});
    }
    /// A printer of which nothing is known, not even its paper.
    bool addRawPrinter(const char* name) const { return add(name, {"-m", "raw"}); }
    /// With what it has printed.
    void removePrinter(const char* name) const {
        outputOf({"lpadmin", "-x", name});
        QFile::remove(paperOf(name));
    }
    void makeDefault(const char* name) const { outputOf({"lpadmin", "-d", name}); }
    void reject(const char* name) const { outputOf({"cupsreject", name}); }

    /// The file with what a printer has printed, once it has printed all; empty if it has printed nothing.
    QString printedBy(const char* name) const {
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < 20000 && !outputOf({"lpstat", "-o"}).isEmpty();)
            QTest::qWait(50);
        const QString file = paperOf(name);
        return QFile::exists(file) ? file : QString();
    }

private:
    QString paperOf(const char* name) const {
        return m_folder.path(QStringLiteral("paper/%1.pdf").arg(QString::fromLatin1(name)));
    }
    QByteArray files() const {
        const QByteArray top = m_folder.native("");
        return "ServerRoot " + top + "root\nStateDir " + top + "state\nRequestRoot " + top +
               "spool\nCacheDir " + top + "cache\nTempDir " + top + "spool/tmp\nAccessLog " + top +
               "access\nErrorLog " + top + "errors\nPageLog " + top + "pages\nFileDevice Yes\n";
    }
    QByteArray rules() const {
        return "Listen " + m_folder.native("socket") +
               "\nLogLevel none\nBrowsing No\nWebInterface No\nDefaultAuthType None\n"
               "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
               "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n</Policy>\n";
    }
    bool add(const char* name, const QByteArrayList& kind) const {
        const QByteArray device = "file://" + m_folder.native("paper/") + name + ".pdf";
        outputOf(QByteArrayList{"lpadmin", "-p", name, "-E", "-v", device} + kind);
        return outputOf({"lpstat", "-a", name}).contains("accepting");
    }
    TestFolder m_folder;
    QProcess m_daemon;
};

} // namespace torvane
