// SPDX-License-Identifier: MIT
// Combining the states of names with those of files.
#include "DiskStates.h"
#include "FileVariants.h"

#include <algorithm>
#include <random>

namespace torvane::faults {

namespace {
constexpr size_t fewChanges = 10; // 1024 choices of names
constexpr size_t sampledChoices = 256;
constexpr size_t fewCombinations = 300; // of file variants, for one choice of names
constexpr size_t manyNameChanges = 6;   // beyond these, each choice of names gets fewer variants

class States {
public:
    States(const Disk& disk, const std::function<void(const Tree&)>& visit) : m_disk(disk), m_visit(visit) {
        for (const auto& [id, folder] : disk.folders()) m_changes += folder.changes.size();
        if (m_changes > manyNameChanges)
            m_most = std::max<size_t>(fewCombinations >> (m_changes - manyNameChanges), 4);
    }

    void visitAll() {
        std::vector<bool> chosen(m_changes);
        if (m_changes <= fewChanges) {
            for (size_t bits = 0; bits < size_t{1} << m_changes; ++bits) {
                for (size_t i = 0; i < m_changes; ++i) chosen[i] = bits >> i & 1;
                visitNames(chosen);
            }
            return;
        }
        for (size_t cut = 0; cut <= m_changes; ++cut) {
            for (size_t i = 0; i < m_changes; ++i) chosen[i] = i < cut;
            visitNames(chosen);
            chosen.flip();
            visitNames(chosen);
        }
        for (size_t i = 0; i < sampledChoices; ++i) {
            for (size_t j = 0; j < m_changes; ++j) chosen[j] = m_random() % 2 == 1;
            visitNames(chosen);
        }
    }

private:
    // With exactly these changes of names on the disk.
    void visitNames(const std::vector<bool>& chosen) {
        std::map<Disk::Id, std::map<std::string, Disk::Id>> folders;
        size_t next = 0;
        for (const auto& [id, folder] : m_disk.folders()) {
            auto& names = folders[id] = folder.synced;
            for (const auto& change : folder.changes) {
                if (!chosen[next++]) continue;
                for (const auto& [name, file] : change) names[name] = file;
            }
        }
        m_paths.clear();
        walk(folders, m_disk.root(), {});
        visitFiles();
    }

    void walk(const std::map<Disk::Id, std::map<std::string, Disk::Id>>& folders, Disk::Id folder,
              const std::string& path) {
        for (const auto& [name, id] : folders.at(folder)) {
            if (id == 0) continue;
            if (folders.count(id) == 0) {
                m_paths[path + name] = id;
            } else {
                walk(folders, id, (path + name).append("/"));
            }
        }
    }

    const std::vector<FileState>& variants(Disk::Id id) {
        auto& known = m_variants[id];
        if (known.empty()) known = variantsOf(m_disk.files().at(id));
        return known;
    }

    void visitFiles() {
        size_t combinations = 1;
        for (const auto& [path, id] : m_paths) {
            if (m_picks.emplace(id, 0).second) combinations *= variants(id).size();
            if (combinations > m_most * m_most) break;
        }
        m_picks.clear();
        const bool isFew = combinations <= m_most;
        for (size_t i = 0; i < (isFew ? combinations : m_most); ++i) {
            pick(i, isFew);
            m_visit(tree());
        }
    }

    // One variant of each file: the n-th of all combinations, or a sample. Two names of one file share its
    // variant.
    void pick(size_t n, bool isFew) {
        m_picks.clear();
        for (const auto& [path, id] : m_paths) {
            if (m_picks.count(id) > 0) continue;
            const size_t count = variants(id).size();
            m_picks[id] = (isFew ? n : m_random()) % count;
            n /= count;
        }
    }

    Tree tree() {
        Tree tree;
        for (const auto& [path, id] : m_paths) tree[path] = variants(id)[m_picks[id]];
        return tree;
    }

    const Disk& m_disk;
    const std::function<void(const Tree&)>& m_visit;
    size_t m_changes = 0;
    size_t m_most = fewCombinations;
    std::map<std::string, Disk::Id> m_paths;
    std::map<Disk::Id, std::vector<FileState>> m_variants;
    std::map<Disk::Id, size_t> m_picks;
    std::mt19937 m_random{29};
};
} // namespace

void forEachState(const Disk& disk, const std::function<void(const Tree&)>& visit) {
    States(disk, visit).visitAll();
}

} // namespace torvane::faults
