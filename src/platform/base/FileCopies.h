// SPDX-License-Identifier: MIT
// Copying many files into one folder. At any moment, after any failure or power cut, each is there whole or
// not at all, as with SafeFile; but they share their syncs, which would else cost more than the bytes: up to
// 128 hidden files are written, brought to the disk together, and then renamed.
#pragma once

#include "Arrival.h"

#include <QElapsedTimer>
#include <QString>
#include <vector>

namespace torvane {

/// A file that was copied: what it was then, and the copy that was brought to the disk.
struct CopyRecord {
    QByteArray source; ///< real path
    struct stat was {};
    QByteArray target; ///< real path
    struct stat copy {};

    /// Whether the copy stands in its place, whole, as it was written.
    bool stands() const;
    /// Whether nothing is lost if the source goes: the copy stands, and the source is another file that has
    /// not changed since.
    bool coversSource() const;
    /// The same of the file of any path (real): if it is not the source, only the copy's own file is kept.
    bool covers(const QByteArray& path) const;
};

class FileCopies {
public:
    /// Copies go to the folder, spelled, under names that differ in case if they do. `serve` is called about
    /// every 10 ms while there is work, never from another thread.
    FileCopies(const QString& folder, std::function<void()> serve);

    /// Copies a file, in place of one of the name; it is in place after `finish` at the latest. False if that
    /// is the source itself, which stays as it is. Fails as SafeFile::copy does, with the copies before it
    /// still on their way.
    bool add(const QString& source, const QString& name);
    /// Brings all copies to the disk and puts them in place. Where one fails the others arrive all the same.
    void finish();
    /// What is in place and synced, in the order of its adding.
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
