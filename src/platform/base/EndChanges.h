// SPDX-License-Identifier: MIT
// Changes the ends of many files, in any folders, in place: each as SafeFile::Change does, but they share
// their notes and syncs. At any moment, after any failure or power cut, each file has its old end or its new
// one.
#pragma once

#include "SafeFile.h"

#include <memory>

namespace torvane {

class EndChanges {
public:
    /// The new end of a file: what follows its first `kept` bytes.
    struct End {
        qint64 kept = 0;
        QByteArray bytes;
    };
    /// Looks at an open file and gives its new end, or nothing if it is to stay as it is. May fail. Is called
    /// on any thread, at the same time for several files.
    using Decide = std::function<std::optional<End>(const Handle&)>;
    /// What became of a file.
    struct Result {
        QString path; ///< as it was added
        TailChange change;
        bool isDone = false;                   ///< whether the change is made, and synced
        std::optional<RuntimeFailure> failure; ///< none if the file was to stay as it is
    };
    using Results = std::vector<Result>;
    /// What else is to be done with a file that was changed in place, before it is synced. Must not fail.
    using Afterwards = std::function<void(const Handle&, const TailChange&)>;

    /// `aboutToWrite` gets the changes that are going to be made next; if it fails, they fail. `afterwards`
    /// is called with each file that was changed in place.
    explicit EndChanges(std::function<void(const Results&)> aboutToWrite = {}, Afterwards afterwards = {})
        : m_aboutToWrite(std::move(aboutToWrite)), m_afterwards(std::move(afterwards)) {}

    /// Changes a file, with up to 127 others, until `finish` at the latest. Never fails. An end of more than
    /// SafeFile::Change::largestEnd, old or new, is refused with invalidCall.
    void add(const QString& path, const Decide& decide);
    /// Completes all changes. Returns the results of all files that were added, in their order, and forgets
    /// them.
    Results finish();

private:
    struct Waiting {
        size_t result; // the index of its result
        struct stat info;
        Decide decide;
        std::unique_ptr<SafeFile::Change> file = {}; // open from `prepare` on
        std::optional<End> end = {};
    };
    using Notes = std::vector<std::unique_ptr<TailNote>>;

    bool isWaiting(const struct stat& info) const;
    void prepare(Waiting& one);
    void place();
    void placeTogether();
    void replaceOthers();
    void keepBusyOnes();
    void replace(const Waiting& one);
    void announce();
    Notes takeNotes();
    void sync();
    // Returns false if a note is still needed.
    bool restoreWhatFailed() const;
    // Runs an action on each waiting file that has not failed yet.
    void forEach(const std::function<void(const Waiting&)>& action);

    std::function<void(const Results&)> m_aboutToWrite;
    Afterwards m_afterwards;
    SafeFile::Change::Patience m_patience = SafeFile::Change::Patience::none;
    std::vector<Waiting> m_waiting;
    std::vector<Waiting> m_busy; // to be tried again
    Results m_results;
};

} // namespace torvane
