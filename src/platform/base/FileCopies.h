// SPDX-License-Identifier: MIT
// Copies many files into one folder. At any moment, after any failure or power cut, each copy is whole or
// missing, as with SafeFile. But the copies share their syncs, which would otherwise cost more than the
// bytes: up to 128 hidden files are written, synced together, and then renamed.
#pragma once

#include "Arrival.h"

#include <QElapsedTimer>
#include <QString>
#include <vector>

namespace torvane {

/// A file that was copied: its state then, and the state of the synced copy.
struct CopyRecord {
    QByteArray source; ///< real path
    struct stat was {};
    QByteArray target; ///< real path
    struct stat copy {};

    /// Whether the copy is in its place, complete and unchanged.
    bool isIntact() const;
    /// Whether deleting the source loses nothing: the copy is intact, and the source is another file and
    /// unchanged.
    bool coversSource() const;
    /// Whether deleting the file at a real path loses nothing. The source must be unchanged, any other file
    /// must only not be the copy itself; and the copy must be intact.
    bool covers(const QByteArray& path) const;
};

class FileCopies {
public:
    /// Copies into a folder (spelled path), under exactly the given names: case matters. `serve` is called
    /// about every 10 ms during the work, always on this thread.
    FileCopies(const QString& folder, std::function<void()> serve);

    /// Copies a file, replacing one of that name; it is in its place after `finish` at the latest. False if
    /// that is the source itself, which is left alone. Fails as SafeFile::copy does; copies that were added
    /// before stay pending.
    bool add(const QString& source, const QString& name);
    /// Syncs all copies and renames them to their final names. If one fails, the others are still completed,
    /// and the first failure is thrown.
    void finish();
    /// The copies that are in place and synced, in the order in which they were added.
    const std::vector<CopyRecord>& records() const { return m_records; }

private:
    struct Waiting {
        std::unique_ptr<Arrival> arrival;
        CopyRecord record;
    };

    void serveIfDue();
    void inBackground(const std::function<void()>& call) const;
    void place(std::vector<Waiting>& batch);
    static void sync(const std::vector<Waiting>& batch);
    static void syncFolders(const std::vector<Waiting>& batch);

    QByteArray m_folder;
    std::function<void()> m_serve;
    QElapsedTimer m_served;
    std::vector<Waiting> m_waiting;
    std::vector<CopyRecord> m_records;
};

} // namespace torvane
