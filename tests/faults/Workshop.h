// SPDX-License-Identifier: MIT
// A folder in which files are laid out, harmed and looked at: the program's folder, the user's settings and
// two folders elsewhere. Gone with this object.
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
/// Files by their paths below the workshop's folder. Folders are there because a file is in them.
using Tree = std::map<std::string, FileState>;

class Workshop {
public:
    /// In the folder that TORVANE_FAULTS_FOLDER names, else in memory where there is such a folder, else
    /// among the temporary files.
    Workshop();
    ~Workshop();
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    std::string path(const std::string& relative = {}) const;
    /// Makes the folder hold exactly these files; what was laid out before and is untouched is kept.
    void layOut(const Tree& tree);
    /// The paths of all files, hidden ones too.
    std::vector<std::string> names() const;
    /// The length of a file; nothing if there is none.
    std::optional<qint64> lengthOf(const std::string& relative) const;
    bool holds(const std::string& relative, const QByteArray& bytes) const;
    /// Whether a file is there that begins with these bytes.
    bool beginsWith(const std::string& relative, const QByteArray& bytes) const;
    QByteArray read(const std::string& relative, qint64 from = 0) const;
    Rights rightsOf(const std::string& relative) const;

private:
    bool isUntouched(const std::string& relative, const FileState& state) const;
    void write(const std::string& relative, const FileState& state);
    void removeAllBut(const Tree& tree);

    struct LaidOut {
        struct stat info {};
        QByteArray bytes; // held, so that no other content can come to lie at its place
    };
    std::string m_root;
    std::map<std::string, LaidOut> m_laidOut;
};

} // namespace torvane::faults
