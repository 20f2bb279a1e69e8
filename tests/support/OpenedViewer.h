// SPDX-License-Identifier: MIT
// What the tests of the archive window share: the program, an archive in its library, the window.
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
    /// An archive as the only game of the library, opened by the button of its panel.
    void openArchive(const QList<ArchiveMember>& members, const QString& name = QStringLiteral("game.zip")) {
        writeArchive(opened->world.folder.path(QStringLiteral("roms/") + name), members);
        opened->open();
        click(main().Zipper);
        QVERIFY(isOpen());
    }
    /// What the user does while an archive is being read, which serves his events.
    void during(int milliseconds, const std::function<void()>& act) {
        QTimer::singleShot(milliseconds, this, act);
    }
    /// The same as soon as something holds; after ten seconds also if it doesn't.
    void when(const std::function<bool()>& holds, const std::function<void()>& act) {
        auto* looking = new QTimer(this);
        const QDeadlineTimer end(10'000);
        connect(looking, &QTimer::timeout, looking, [=] {
            if (!holds() && !end.hasExpired()) return;
            looking->stop();
            looking->deleteLater();
            act();
        });
        looking->start(5);
    }
};

} // namespace torvane
