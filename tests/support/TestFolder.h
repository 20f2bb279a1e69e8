// SPDX-License-Identifier: MIT
// A folder of a test's own, gone at its end, with short ways to put files into it and to read them. Every
// user may enter it, for the tests that go on as another one.
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
        // Without a dot in the path: the program cuts whole paths at the first one.
        : m_dir(parent + QStringLiteral("/torvane-test-XXXXXX")) {
        QVERIFY2(m_dir.isValid(), "no temporary folder");
        setMode(QStringLiteral("."), 0755);
    }

    ~TestFolder() {
        // The toolkit can't remove files whose names are no text.
        std::error_code error;
        std::filesystem::remove_all(m_dir.path().toStdString(), error);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

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
    /// The path of a name that may be any bytes, for system calls.
    QByteArray native(const QByteArray& name) const { return QFile::encodeName(path()) + '/' + name; }
    /// Makes a file with a name of any bytes; gives its spelled path.
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
    /// All names in a folder, hidden ones too.
    QStringList entries(const QString& relative = QStringLiteral(".")) const {
        return QDir(path(relative)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_dir;
};

} // namespace torvane
