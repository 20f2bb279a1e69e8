// SPDX-License-Identifier: MIT
// Shared by the tests of the archive window: the program, an archive in its library, and the window.
#pragma once

#include "Archive.h"
#include "OpenedProgram.h"

#include <QDeadlineTimer>
#include <QTimer>

namespace torvane {

class OpenedViewer : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    void start() { opened = std::make_unique<OpenedProgram>(); }
    void end() { opened.reset(); }
    MainFrm& main() const { return opened->main(); }
    ZIP_Viewer& window() const { return *opened->program->loaded<ZIP_Viewer>(); }
    bool isOpen() const { return opened->program->loaded<ZIP_Viewer>() != nullptr; }
    FakeProcesses& processes() const { return opened->world.processes; }
    QByteArray temp() const { return opened->world.appPath().toUtf8() + "/ziptemp/"; }
    bool exists(const QString& relative) const {
        return QFileInfo::exists(opened->world.folder.path(relative));
    }
    /// Writes an archive as the only game of the library and opens it with the button of its panel.
    void openArchive(const QList<ArchiveMember>& members, const QString& name = QStringLiteral("game.zip")) {
        writeArchive(opened->world.folder.path(QStringLiteral("roms/") + name), members);
        opened->open();
        click(main().Zipper);
        QVERIFY(isOpen());
    }
    /// Acts as the user while an archive is being read, after some milliseconds.
    void during(int milliseconds, const std::function<void()>& act) {
        QTimer::singleShot(milliseconds, this, act);
    }
    /// Acts as the user as soon as a condition holds, or after ten seconds even if it doesn't.
    void when(const std::function<bool()>& holds, const std::function<void()>& act) {
        auto* poll = new QTimer(this);
        const QDeadlineTimer end(10'000);
        connect(poll, &QTimer::timeout, poll, [=] {
            if (!holds() && !end.hasExpired()) return;
            poll->stop();
            poll->deleteLater();
            act();
        });
        poll->start(5);
    }
};

} // namespace torvane
