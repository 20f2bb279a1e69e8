// SPDX-License-Identifier: MIT
// Lays out a tree in a folder where users keep files of their own. A file is
//     created     if it was never laid out and does not exist,
//     updated     if it is still what was laid out last, byte for byte,
//     left alone  in all other cases: changed, deleted, replaced, or never ours.
// So is a file whose folder is a file, or a link that leads nowhere: its disk may come back.
// A file that equals its source counts as laid out; so the next run completes an interrupted one. Nothing is
// done to a folder that has the tree of a newer version.
#pragma once

#include "SourceTree.h"
#include "platform/base/NewFiles.h"

#include <chrono>

namespace torvane {

class LayOut {
public:
    struct Report {
        int created = 0;
        int updated = 0;
        int kept = 0;           ///< files that differ from their sources and were left alone
        QByteArrayList missing; ///< sources that are not what the tree says; their turn is next time
        std::vector<RuntimeFailure> failures; ///< what could not be read or written; the rest is done
    };

    /// `folder` (real path) is made if necessary, and so are the folders that the program expects in it.
    LayOut(QByteArray folder, SourceTree tree) : m_folder(std::move(folder)), m_tree(std::move(tree)) {}

    /// Does what there is to do. Two runs at once take turns, where the file system has locks; one that has
    /// waited for so long gives up with a failure.
    Report run(std::chrono::milliseconds longestWait = std::chrono::seconds(20));

private:
    using Source = SourceTree::Entry;

    bool isNewer() const;
    bool isDone() const;
    bool isPending(const QByteArray& path, const Source& source) const;
    Handle locked(std::chrono::milliseconds longestWait) const;
    void bringUpToDate();
    void makeFolders();
    bool isBarred(const QByteArray& folder) const;
    void settle(const QByteArray& path, const Source& source);
    void settleFile(const QByteArray& path, const Source& source, const LaidFile& before);
    void create(const QByteArray& path, const Source& source);
    void update(const QByteArray& path, const Source& source, const LaidFile& before);
    void finishCreating();
    QByteArray target(const QByteArray& path) const;
    bool readSource(const Source& source, QByteArray& bytes);
    void attempt(const QByteArray& path, const std::function<void()>& action);

    QByteArray m_folder;
    SourceTree m_tree;
    TreeRecord m_record;
    Report m_report;
    NewFiles m_new;
    QByteArrayList m_creating; // paths of m_new, in its order
};

} // namespace torvane
