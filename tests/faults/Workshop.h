// SPDX-License-Identifier: MIT
// A folder in which files are laid out, damaged and inspected: the program's folder, the user's settings and
// two other folders. Deleted with this object.
#pragma once

#include <QByteArray>
#include <map>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace torvane::faults {

struct Rights {
    mode_t mode = 0644;
    uid_t owner = geteuid();
    gid_t group = getegid();
    bool operator==(const Rights&) const = default;
};

struct FileState {
    QByteArray bytes;
    Rights rights;
};
/// Files by their paths relative to the workshop's folder. A folder exists because a file is in it.
using Tree = std::map<std::string, FileState>;

class Workshop {
public:
    /// Created in the folder that TORVANE_FAULTS_FOLDER names, otherwise in memory if there is such a folder,
    /// otherwise among the temporary files.
    Workshop();
    ~Workshop();
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    std::string path(const std::string& relative = {}) const;
    /// Makes the folder hold exactly these files; those that were laid out before and are untouched are kept.
    void layOut(const Tree& tree);
    /// The paths of all files, including hidden ones.
    std::vector<std::string> names() const;
    /// The length of a file; nothing if there is none.
    std::optional<qint64> lengthOf(const std::string& relative) const;
    bool holds(const std::string& relative, const QByteArray& bytes) const;
    /// Whether the file exists and begins with these bytes.
    bool beginsWith(const std::string& relative, const QByteArray& bytes) const;
    QByteArray read(const std::string& relative, qint64 from = 0) const;
    Rights rightsOf(const std::string& relative) const;

private:
    bool isUntouched(const std::string& relative, const FileState& state) const;
    void write(const std::string& relative, const FileState& state);
    void removeAllBut(const Tree& tree);

    struct LaidOut {
        struct stat info {};
        QByteArray bytes; // held, so that no other content can get the same address
    };
    std::string m_root;
    std::map<std::string, LaidOut> m_laidOut;
};

} // namespace torvane::faults
