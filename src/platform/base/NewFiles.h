// SPDX-License-Identifier: MIT
// Creates many files, in any folders. At any moment, after any failure or power cut, each of them is whole or
// missing; nothing that exists is ever replaced. They share their syncs, as those of FileCopies do.
#pragma once

#include "Arrival.h"

#include <optional>
#include <vector>

namespace torvane {

class NewFiles {
public:
    /// What became of a file.
    struct Result {
        QByteArray path;                       ///< real path, as it was added
        bool isPlaced = false;                 ///< whether it has its name, and is synced
        std::optional<RuntimeFailure> failure; ///< none if only its name was taken
    };

    /// Writes a file that is to get a real path, with its folder in it, and a mode; its folder is made if
    /// necessary. It has its name after `finish` at the latest.
    void add(const QByteArray& path, QByteArrayView bytes, mode_t mode);
    /// Gives all files their names. Returns the results of all that were added, and forgets them.
    std::vector<Result> finish();

private:
    struct Waiting {
        size_t result; // the index of its result
        std::unique_ptr<Arrival> arrival;
    };

    void write(const QByteArray& path, QByteArrayView bytes, mode_t mode);
    void place();
    void sync();
    void rename();
    void syncFolders();
    // Runs an action on each waiting file; one that fails, or is not wanted any more, waits no longer.
    void forEach(const std::function<bool(Waiting&)>& action);

    std::vector<Waiting> m_waiting;
    std::vector<Result> m_results;
};

} // namespace torvane
