// SPDX-License-Identifier: MIT
// What becomes of files that the user has named at a start: a game of the library is selected, the others go
// to the assistant, as if dropped on the window.
#pragma once

#include <QByteArrayList>
#include <QStringList>
#include <QTimer>

namespace torvane {

class Program;

class OpenFiles : public QObject {
public:
    explicit OpenFiles(Program& program);

    /// Absolute real paths of files and folders, opened in this order. They wait until the main or the
    /// compact window takes orders (see Foreground) and no handler runs, so not during the intro, a question,
    /// a download, a copy or a game.
    void open(const QByteArrayList& paths);

private:
    void goOn();
    void openNow(const QStringList& files);
    QString nameInLibrary(const QString& file);
    bool isListed(const QString& name);
    void select(const QString& name);

    Program& m_program;
    QStringList m_waiting; // spelled paths
    QTimer m_look;
    bool m_isListFresh = false;
};

} // namespace torvane
