// SPDX-License-Identifier: MIT
// Reading in a folder, and replaying what the program did to it.
#include "Disk.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace torvane::faults {

namespace fs = std::filesystem;

namespace {
ino_t inodeOf(const fs::path& path) {
    struct stat info {};
    if (lstat(path.c_str(), &info) != 0) throw std::runtime_error("cannot look at " + path.string());
    return info.st_ino;
}

FileState withWrite(FileState state, const Step& step) {
    const qsizetype position = step.position;
    const auto count = static_cast<qsizetype>(step.data.size());
    if (state.bytes.size() < position + count)
        state.bytes.append(position + count - state.bytes.size(), '\0');
    std::copy(step.data.begin(), step.data.end(), state.bytes.begin() + position);
    return state;
}

FileState withLength(FileState state, qsizetype length) {
    if (length > state.bytes.size()) state.bytes.append(length - state.bytes.size(), '\0');
    state.bytes.truncate(length);
    return state;
}
} // namespace

Disk::Disk(const Workshop& workshop) : m_root(takeIn(inodeOf(workshop.path()))) {
    m_folders[m_root];
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(workshop.path())) {
        const std::string relative = entry.path().string().substr(workshop.path().size() + 1);
        const Id id = takeIn(inodeOf(entry.path()));
        Folder& around = m_folders.at(idOf(inodeOf(entry.path().parent_path())));
        around.synced[entry.path().filename().string()] = id;
        around.present = around.synced;
        if (entry.is_directory()) {
            m_folders[id];
        } else {
            m_files[id] = {{workshop.read(relative), workshop.rightsOf(relative)}};
        }
    }
}

// The inode number of a deleted file may be given to a new one, but an id is never reused.
Disk::Id Disk::takeIn(ino_t inode) { return m_ids[inode] = ++m_last; }

Disk::Id Disk::idOf(ino_t inode) const {
    const auto found = m_ids.find(inode);
    if (found == m_ids.end()) throw std::runtime_error("the tape names a file that it does not know");
    return found->second;
}

Disk::Id Disk::idAt(const Name& name) const {
    const Folder& folder = m_folders.at(idOf(name.folder));
    const auto found = folder.present.find(name.name);
    if (found == folder.present.end()) throw std::runtime_error("the tape names no file: " + name.name);
    return found->second;
}

void Disk::play(const Step& step) {
    switch (step.kind) {
    case Step::Kind::makeFile:
    case Step::Kind::makeFolder: return make(step);
    case Step::Kind::write:
    case Step::Kind::setLength:
    case Step::Kind::setRights: return change(step);
    case Step::Kind::sync:
        if (m_ids.count(step.file) > 0)
            sync(idOf(step.file)); // not of a folder above those that are recorded
        return;
    case Step::Kind::syncAll: return syncAll();
    default: return move(step);
    }
}

void Disk::make(const Step& step) {
    const Id id = takeIn(step.file);
    if (step.kind == Step::Kind::makeFolder) m_folders[id];
    if (step.kind == Step::Kind::makeFile) m_files[id] = {{{}, {step.mode, step.owner, step.group}}};
    rename(folderOf(step.at), {{step.at.name, id}});
}

void Disk::change(const Step& step) {
    File& file = m_files.at(idOf(step.file));
    FileState state = file.back();
    if (step.kind == Step::Kind::write) state = withWrite(state, step);
    if (step.kind == Step::Kind::setLength) state = withLength(state, step.length);
    if (step.kind == Step::Kind::setRights) state.rights = {step.mode, step.owner, step.group};
    file.push_back(state);
}

void Disk::move(const Step& step) {
    const Id id = idAt(step.at);
    if (step.kind == Step::Kind::unlink) return rename(folderOf(step.at), {{step.at.name, 0}});
    if (step.kind == Step::Kind::link) return rename(folderOf(step.to), {{step.to.name, id}});
    if (step.at.folder != step.to.folder) throw std::runtime_error("no rule for renames between folders");
    const Id other = step.kind == Step::Kind::exchange ? idAt(step.to) : 0;
    rename(folderOf(step.to), {{step.at.name, other}, {step.to.name, id}});
}

void Disk::rename(Folder& folder, std::map<std::string, Id> names) {
    for (const auto& [name, id] : names) {
        folder.present[name] = id;
        if (id == 0) folder.present.erase(name);
    }
    folder.changes.push_back(std::move(names));
}

void Disk::sync(Id id) {
    const auto folder = m_folders.find(id);
    if (folder != m_folders.end()) {
        folder->second.synced = folder->second.present;
        folder->second.changes.clear();
        return;
    }
    File& file = m_files.at(id);
    file = {file.back()};
}

void Disk::syncAll() {
    for (const auto& [id, folder] : m_folders) sync(id);
    for (const auto& [id, file] : m_files) sync(id);
}

} // namespace torvane::faults
