// SPDX-License-Identifier: MIT
// The steps by which a part of the program has changed files, with the data: the recording that the model of
// a power failure replays. Contains only calls that succeeded.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace torvane::faults {

/// A name in a folder; folders and files are identified by their inode numbers.
struct Name {
    ino_t folder = 0;
    std::string name;
};

struct Step {
    enum class Kind {
        makeFile,
        makeFolder,
        write,
        setLength,
        setRights,
        sync,
        syncAll,
        rename,
        exchange,
        link,
        unlink
    };
    Kind kind;
    ino_t file = 0; ///< the file or folder that is created, written or synced
    Name at{};      ///< the name that is created or removed
    Name to{};      ///< the new name
    off_t position = 0;
    off_t length = 0;
    std::string data{};
    mode_t mode = 0; ///< of a file that is created or gets permissions, with owner and group
    uid_t owner = 0;
    gid_t group = 0;
};

void startRecording();
/// Ends the recording.
std::vector<Step> takeRecorded();

namespace record {
bool isOn();
bool isThere(int folder, const char* path);
void made(int handle, int folder, const char* path);
void folderMade(int folder, const char* path);
void wrote(int handle, const void* data, ssize_t count);
void lengthSet(int handle, off_t length);
void rightsSet(int handle);
void synced(int handle);
void allSynced();
void renamed(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags);
void linked(int fromFolder, const char* from, int toFolder, const char* to);
void unlinked(int folder, const char* path);
} // namespace record

} // namespace torvane::faults
