// SPDX-License-Identifier: MIT
// Shared by the tests of file changes: a temporary folder, access to its files, and links.
#pragma once

#include "Failing.h"
#include "TestFolder.h"

#include <fcntl.h>
#include <memory>

namespace torvane {

/// The result of failureOf for a statement that does not fail.
inline const std::optional<int> nothing;

class FileFixture : public QObject {
protected:
    std::unique_ptr<TestFolder> folder;

    void renewFolder() { folder = std::make_unique<TestFolder>(); }

    QString at(const char* name) const { return folder->path(QString::fromUtf8(name)); }
    QByteArray read(const char* name) const { return folder->read(QString::fromUtf8(name)); }
    QString write(const char* name, const QByteArray& bytes) const {
        return folder->write(QString::fromUtf8(name), bytes);
    }
    /// The status of a name; links are not followed.
    struct stat infoOf(const char* name) const {
        struct stat info {};
        if (lstat(folder->native(name).constData(), &info) != 0) qFatal("no such file: %s", name);
        return info;
    }
    uint modeOf(const char* name) const { return infoOf(name).st_mode & 07777; }
    void setMode(const char* name, mode_t mode) const { folder->setMode(QString::fromUtf8(name), mode); }
    void setOwner(const char* name, uid_t owner, gid_t group) const {
        if (lchown(folder->native(name).constData(), owner, group) != 0) qFatal("can't set the owner");
    }
    /// Sets the time of the last change to long ago, so that a change now has another time even with a coarse
    /// clock.
    void makeOld(const char* name) const {
        const timespec times[2] = {{0, UTIME_OMIT}, longAgo};
        if (utimensat(AT_FDCWD, folder->native(name).constData(), times, 0) != 0)
            qFatal("can't set the time");
    }
    void softLink(const char* target, const char* name) const {
        if (symlink(target, folder->native(name).constData()) != 0) qFatal("can't link");
    }
    void hardLink(const char* target, const char* name) const {
        const QByteArray from = folder->native(target);
        if (link(from.constData(), folder->native(name).constData()) != 0) qFatal("can't link");
    }
    /// Checks that the folder holds exactly these names, hidden ones included.
    void expectNames(const QStringList& names, const char* where = ".") const {
        QCOMPARE(folder->entries(QString::fromUtf8(where)), names);
    }

    static constexpr timespec longAgo{1000000000, 123456789};
};

} // namespace torvane
