// SPDX-License-Identifier: MIT
// Reports that other programs have changed a folder, once nothing has happened in it for a moment. It stands
// on inotify(7) itself: QFileSystemWatcher does not see that a file has been closed after writing or that the
// folder has been moved, knows UTF-8 names alone, and polls where inotify is unavailable.
#pragma once

#include "SystemCalls.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <memory>

namespace torvane {

class FolderWatch : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds usualQuiet{300};

    /// A change is reported when nothing has followed it for one to two times `quiet`.
    explicit FolderWatch(std::chrono::milliseconds quiet = usualQuiet);

    /// Watches the folder at a real path from now on, and no other. A folder that is missing, or that
    /// vanishes, is watched as soon as it is there, provided that the folder above it stays. Where inotify is
    /// unavailable, nothing is ever reported. The first call for a folder takes the longer the more files it
    /// has: 30 ms for 100,000, since the kernel marks each that it knows.
    void watch(const QByteArray& path);
    /// Reports a change after so long, whatever happens, for what can be seen only later.
    void lookAgain(std::chrono::milliseconds delay) {
        if (m_events.isOpen()) m_rest.start(delay);
    }

signals:
    /// Files have come, gone, or been written and closed, or the folder itself has come or gone: one report
    /// for all that has happened since the last. Names with a leading dot do not count.
    void changed();

private:
    void open();
    void attach();
    void follow(int& mark, const QByteArray& path) const;
    void wake();
    void report();
    bool takeEvents() const;
    bool isChange(int mark, quint32 kind, QByteArrayView name) const;

    std::chrono::milliseconds m_quiet;
    QByteArray m_path;
    QByteArray m_parent;
    QByteArray m_name; // in the parent folder
    Handle m_events;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_rest;
    int m_folderMark = -1; // of inotify; -1 for none
    int m_parentMark = -1;
};

} // namespace torvane
