// SPDX-License-Identifier: MIT
// The program with its assistant, which opens for an empty library, and the actions of its user.
#pragma once

#include "OpenedProgram.h"

#include <QDragEnterEvent>
#include <QMimeData>

namespace torvane {

struct OpenedAssistant : OpenedProgram {
    FakeDialogs& dialogs() const { return const_cast<FakeWorld&>(world).dialogs; }
    bool isThere() const { return program->loaded<NewAssistant>() != nullptr; }
    NewAssistant& assistant() const { return *program->loaded<NewAssistant>(); }

    /// The program on its first start: no games, the assistant above the main window.
    NewAssistant& openAssistant() {
        open();
        if (!isThere() || !QTest::qWaitForWindowExposed(&assistant())) qFatal("no assistant");
        return assistant();
    }
    QString said(const char* key) const { return text("Assistant", key); }
    /// Three texts as a page of the assistant shows them.
    QString page(const char* first, const char* second, const char* third) const {
        return said(first) + QStringLiteral("\r\n\r\n  ") + said(second) + QStringLiteral("\r\n  ") +
               said(third);
    }
    /// Runs the typewriter to its end without waiting; gives the typed text.
    QString typed() const {
        Timer& timer = assistant().Timer1;
        for (int tick = 0; timer.Enabled() && tick < 1000; ++tick) emit timer.Tick();
        return assistant().Label1.Caption();
    }
    /// Writes a file outside the library; gives its path.
    QString original(const QString& name, const QByteArray& bytes = "game") const {
        return world.folder.write(QStringLiteral("from/") + name, bytes);
    }
    QString from() const { return world.folder.path(QStringLiteral("from")); }
    bool exists(const QString& relative) const { return QFileInfo::exists(world.folder.path(relative)); }
    QStringList library() const { return world.folder.entries(QStringLiteral("roms")); }

    // From the welcome page to the later states.
    void goToChoice() const { click(assistant().chameleonButton1); }
    void goToFile() const {
        goToChoice();
        click(assistant().AddFile);
    }
    void browse(const QString& path) const {
        dialogs().answer = path;
        click(assistant().Browse);
    }
    void copyFile(const QString& path) const {
        goToFile();
        browse(path);
        click(assistant().chameleonButton1);
    }
    void copyFolder(const QString& path) const {
        goToChoice();
        dialogs().answer = path;
        click(assistant().AddDir);
    }
};

/// Drops a list of URIs on a window, as a file manager does whose user holds Shift, which asks for a move.
/// False if the window refuses it or would have the files moved.
inline bool dropOn(QWidget& window, const QByteArray& addresses) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), addresses);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::ShiftModifier);
    enter.setAccepted(false);
    QCoreApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::ShiftModifier);
    if (drop.dropAction() != Qt::MoveAction) qFatal("Shift asks for no move");
    QCoreApplication::sendEvent(&window, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}
inline QByteArray addressOf(const QString& path) {
    return "file://" + QFile::encodeName(path).toPercentEncoding("/") + "\r\n";
}

} // namespace torvane
