// SPDX-License-Identifier: MIT
// A temporary folder that is deleted at the end, with short functions to write and read files in it. Every
// user may enter it, for tests that continue as another user.
#pragma once

#include "platform/base/NativeText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>
#include <cstdio>
#include <filesystem>
#include <sys/stat.h>

namespace torvane {

class TestFolder {
public:
    explicit TestFolder(const QString& parent = QDir::tempPath())
        // The path must have no dot: the program cuts whole paths at the first one.
        : m_dir(parent + QStringLiteral("/torvane-test-XXXXXX")) {
        QVERIFY2(m_dir.isValid(), "no temporary folder");
        setMode(QStringLiteral("."), 0755);
    }

    ~TestFolder() {
        // Qt can't delete files whose names are not valid UTF-8.
        std::error_code error;
        std::filesystem::remove_all(m_dir.path().toStdString(), error);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    QString path() const { return m_dir.path(); }
    QString path(const QString& relative) const { return m_dir.filePath(relative); }

    /// Writes a file, creating missing folders; gives its path.
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
    /// The path of a name of any bytes, for system calls.
    QByteArray native(const QByteArray& name) const { return QFile::encodeName(path()) + '/' + name; }
    /// Writes a file with a name of any bytes; gives its spelled path.
    QString writeNative(const QByteArray& name, const QByteArray& bytes) const {
        std::FILE* file = std::fopen(native(name).constData(), "wb");
        if (!file) qFatal("can't make the file");
        std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), file);
        std::fclose(file);
        return NativeText::fromNative(native(name));
    }
    void setMode(const QString& relative, mode_t mode) const {
        if (chmod(QFile::encodeName(path(relative)).constData(), mode) != 0) qFatal("can't set the mode");
    }
    void makeFolder(const QString& relative) const { QDir(path()).mkpath(relative); }
    /// All names in a folder, including hidden ones.
    QStringList entries(const QString& relative = QStringLiteral(".")) const {
        return QDir(path(relative)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_dir;
};

} // namespace torvane
