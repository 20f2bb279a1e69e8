// SPDX-License-Identifier: MIT
// Recording the steps.
#include "Recorder.h"
#include "Through.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace torvane::faults {

namespace {
bool isRecording = false;
std::vector<Step> steps;

ino_t inodeOf(int handle) {
    struct stat info {};
    return fstat(handle, &info) == 0 ? info.st_ino : 0;
}

Name nameAt(int folder, const char* path) {
    const std::string whole = path;
    const size_t slash = whole.rfind('/');
    const bool isBare = slash == std::string::npos;
    const std::string around = isBare ? "." : slash == 0 ? "/" : whole.substr(0, slash);
    struct stat info {};
    if (fstatat(folder, around.c_str(), &info, 0) != 0) return {};
    return {info.st_ino, isBare ? whole : whole.substr(slash + 1)};
}

Step withRights(Step step, int handle) {
    struct stat info {};
    if (fstat(handle, &info) != 0) return step;
    step.file = info.st_ino;
    step.mode = info.st_mode & 07777;
    step.owner = info.st_uid;
    step.group = info.st_gid;
    return step;
}
} // namespace

void startRecording() {
    steps.clear();
    isRecording = true;
}

std::vector<Step> takeRecorded() {
    isRecording = false;
    return std::move(steps);
}

namespace record {

bool isOn() { return isRecording && !OwnWork::isUnderWay(); }

bool isThere(int folder, const char* path) {
    const OwnWork work;
    struct stat info {};
    return fstatat(folder, path, &info, AT_SYMLINK_NOFOLLOW) == 0;
}

void made(int handle, int folder, const char* path) {
    const OwnWork work;
    steps.push_back(withRights({.kind = Step::Kind::makeFile, .at = nameAt(folder, path)}, handle));
}

void folderMade(int folder, const char* path) {
    const OwnWork work;
    struct stat info {};
    fstatat(folder, path, &info, 0);
    steps.push_back({.kind = Step::Kind::makeFolder, .file = info.st_ino, .at = nameAt(folder, path)});
}

void wrote(int handle, const void* data, ssize_t count) {
    const OwnWork work;
    const off_t end = lseek(handle, 0, SEEK_CUR);
    steps.push_back({.kind = Step::Kind::write,
                     .file = inodeOf(handle),
                     .position = end - count,
                     .data = {static_cast<const char*>(data), static_cast<size_t>(count)}});
}

void lengthSet(int handle, off_t length) {
    const OwnWork work;
    steps.push_back({.kind = Step::Kind::setLength, .file = inodeOf(handle), .length = length});
}

void rightsSet(int handle) {
    const OwnWork work;
    steps.push_back(withRights({.kind = Step::Kind::setRights}, handle));
}

void synced(int handle) {
    const OwnWork work;
    steps.push_back({.kind = Step::Kind::sync, .file = inodeOf(handle)});
}

void allSynced() { steps.push_back({.kind = Step::Kind::syncAll}); }

void renamed(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    const OwnWork work;
    const auto kind = (flags & RENAME_EXCHANGE) != 0 ? Step::Kind::exchange : Step::Kind::rename;
    steps.push_back({.kind = kind, .at = nameAt(fromFolder, from), .to = nameAt(toFolder, to)});
}

void linked(int fromFolder, const char* from, int toFolder, const char* to) {
    const OwnWork work;
    steps.push_back({.kind = Step::Kind::link, .at = nameAt(fromFolder, from), .to = nameAt(toFolder, to)});
}

void unlinked(int folder, const char* path) {
    const OwnWork work;
    steps.push_back({.kind = Step::Kind::unlink, .at = nameAt(folder, path)});
}

} // namespace record

} // namespace torvane::faults
