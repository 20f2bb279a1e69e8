// SPDX-License-Identifier: MIT
// Runs another program to its end, for what it prints.
#pragma once

#include <QProcess>

namespace torvane {

/// What a command, found in the PATH, prints when it gets the input; empty if it can't be started.
inline QByteArray outputOf(const QByteArrayList& command, const QByteArray& input = {}) {
    QStringList words;
    for (const QByteArray& word : command) words.append(QString::fromUtf8(word));
    QProcess process;
    process.start(words.takeFirst(), words);
    if (!process.waitForStarted()) return {};
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished();
    return process.readAllStandardOutput();
}

} // namespace torvane
