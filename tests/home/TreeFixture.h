// SPDX-License-Identifier: MIT
// A template of a few files, and a home that is laid out from it.
#pragma once

#include "home/Home.h"
#include "home/LayOut.h"
#include "platform/base/Paths.h"
#include "support/TestFolder.h"

namespace torvane {

struct TreeFixture {
    TestFolder folder;

    QByteArray real(const char* relative) const { return folder.native(relative); }
    QByteArray home() const { return real("home"); }
    QByteArray templateFolder() const { return real("share/tree"); }

    /// Replaces the template by these files, with an index, as the build makes it for a package.
    void makeTemplate(const QMap<QString, QByteArray>& files, const QByteArray& version = "1.1") const {
        QDir(folder.path(QStringLiteral("share"))).removeRecursively();
        for (auto file = files.begin(); file != files.end(); ++file) {
            folder.write(QStringLiteral("share/tree/") + file.key(), file.value());
        }
        makeIndex(version);
    }
    void makeIndex(const QByteArray& version) const {
        std::vector<RuntimeFailure> unread;
        LayOut(templateFolder(), SourceTree::gathered({templateFolder()}, version, unread)).run();
    }
    LayOut::Report layOut() const { return LayOut(home(), SourceTree::recorded(templateFolder())).run(); }

    Home userHome() const { return {Home::Kind::user, home(), templateFolder()}; }
    QByteArray inHome(const char* relative) const {
        return folder.read(QStringLiteral("home/") + QLatin1String(relative));
    }
    bool isInHome(const char* relative) const {
        return QFileInfo::exists(folder.path(QStringLiteral("home/") + QLatin1String(relative)));
    }
    void writeInHome(const char* relative, const QByteArray& bytes) const {
        folder.write(QStringLiteral("home/") + QLatin1String(relative), bytes);
    }
    mode_t modeInHome(const char* relative) const {
        struct stat info {};
        stat((home() + '/' + relative).constData(), &info);
        return info.st_mode & 07777;
    }
};

} // namespace torvane
