// SPDX-License-Identifier: MIT
// A folder of a test's own, gone at its end, with short ways to put files into it and to read them.
#pragma once

#include "platform/base/NativeText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace torvane {

class TestFolder {
public:
    TestFolder() { QVERIFY2(m_dir.isValid(), "no temporary folder"); }

    QString path() const { return m_dir.path(); }
    QString path(const QString& relative) const { return m_dir.filePath(relative); }

    /// Makes a file; folders in front of it are made too.
    QString write(const QString& relative, const QByteArray& bytes) const {
        QDir(path()).mkpath(QFileInfo(relative).path());
        QFile file(path(relative));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("can't write");
        return path(relative);
    }
    QByteArray read(const QString& relative) const {
        QFile file(path(relative));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }
    void makeFolder(const QString& relative) const { QDir(path()).mkpath(relative); }
    /// All names in a folder, hidden ones too.
    QStringList entries(const QString& relative = QStringLiteral(".")) const {
        return QDir(path(relative)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_dir;
};

} // namespace torvane
