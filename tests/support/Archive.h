// SPDX-License-Identifier: MIT
// Archives for tests, written by Python's zipfile: the program must not only read what its own library wrote.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QProcess>
#include <QtTest>

namespace torvane {

struct ArchiveMember {
    QString name;
    QByteArray bytes;
};

/// Writes an archive with these members; creates its folder if it is missing. Aborts the test on failure.
inline void writeArchive(const QString& path, const QList<ArchiveMember>& members) {
    static const QString script = QStringLiteral("import sys, zipfile\n"
                                                 "with zipfile.ZipFile(sys.argv[1], 'w') as z:\n"
                                                 "    for line in sys.stdin:\n"
                                                 "        name, data = line.rstrip('\\n').split('\\t')\n"
                                                 "        z.writestr(name, bytes.fromhex(data))\n");
    QDir().mkpath(QFileInfo(path).path());
    QProcess python;
    python.start(QStringLiteral("python3"), {QStringLiteral("-c"), script, path});
    for (const ArchiveMember& member : members) {
        python.write(member.name.toUtf8() + '\t' + member.bytes.toHex() + '\n');
    }
    python.closeWriteChannel();
    if (!python.waitForFinished(60000) || python.exitCode() != 0) qFatal("can't write the archive");
}

} // namespace torvane
