// SPDX-License-Identifier: MIT
// Laying out files and reading them.
#include "Workshop.h"

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

namespace torvane::faults {

namespace fs = std::filesystem;

namespace {
[[noreturn]] void fail(const std::string& what) { throw std::runtime_error("cannot " + what); }

// The content of a file, without a copy.
class Mapped {
public:
    explicit Mapped(const std::string& path) : m_handle(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        struct stat info {};
        if (m_handle < 0 || fstat(m_handle, &info) != 0) return;
        m_size = static_cast<size_t>(info.st_size);
        if (m_size > 0) m_bytes = mmap(nullptr, m_size, PROT_READ, MAP_SHARED | MAP_POPULATE, m_handle, 0);
    }
    ~Mapped() {
        if (m_size > 0) munmap(m_bytes, m_size);
        if (m_handle >= 0) close(m_handle);
    }
    Mapped(const Mapped&) = delete;
    Mapped& operator=(const Mapped&) = delete;

    bool isThere() const { return m_handle >= 0; }
    size_t size() const { return m_size; }
    bool beginsWith(const QByteArray& bytes) const {
        const auto count = static_cast<size_t>(bytes.size());
        return isThere() && m_size >= count && (count == 0 || std::memcmp(m_bytes, bytes.data(), count) == 0);
    }
    QByteArray from(size_t position) const {
        if (position >= m_size) return {};
        return {static_cast<const char*>(m_bytes) + position, static_cast<qsizetype>(m_size - position)};
    }

private:
    int m_handle;
    size_t m_size = 0;
    void* m_bytes = nullptr;
};

std::string folderForTemporaries() {
    const char* given = std::getenv("TORVANE_FAULTS_FOLDER");
    if (given) return given;
    return access("/dev/shm", W_OK) == 0 ? "/dev/shm" : fs::temp_directory_path().string();
}
} // namespace

Workshop::Workshop() {
    std::string name = folderForTemporaries() + "/torvane-faults-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) fail("make a folder " + name);
    m_root = fs::canonical(name).string();
}

Workshop::~Workshop() {
    std::error_code ignored;
    fs::remove_all(m_root, ignored);
}

std::string Workshop::path(const std::string& relative) const {
    return relative.empty() ? m_root : m_root + '/' + relative;
}

void Workshop::layOut(const Tree& tree) {
    removeAllBut(tree);
    for (const auto& [relative, state] : tree) {
        if (!isUntouched(relative, state)) write(relative, state);
    }
}

bool Workshop::isUntouched(const std::string& relative, const FileState& state) const {
    const auto laid = m_laidOut.find(relative);
    struct stat now {};
    if (laid == m_laidOut.end() || stat(path(relative).c_str(), &now) != 0) return false;
    const struct stat& then = laid->second.info;
    return laid->second.bytes.constData() == state.bytes.constData() && now.st_ino == then.st_ino &&
           now.st_nlink == 1 && now.st_size == then.st_size && now.st_mtim.tv_sec == then.st_mtim.tv_sec &&
           now.st_ctim.tv_sec == then.st_ctim.tv_sec && now.st_ctim.tv_nsec == then.st_ctim.tv_nsec &&
           rightsOf(relative) == state.rights;
}

void Workshop::write(const std::string& relative, const FileState& state) {
    const std::string whole = path(relative);
    fs::create_directories(fs::path(whole).parent_path());
    unlink(whole.c_str()); // it may be another link to a file
    const int handle = open(whole.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    const char* bytes = state.bytes.constData();
    for (qsizetype left = state.bytes.size(); left > 0;) {
        const ssize_t written = ::write(handle, bytes, static_cast<size_t>(left));
        if (written <= 0) fail("write " + whole);
        bytes += written;
        left -= written;
    }
    if (fchown(handle, state.rights.owner, state.rights.group) != 0) fail("give away " + whole);
    if (fchmod(handle, state.rights.mode) != 0) fail("set the mode of " + whole);
    // Any write in place will show, however soon it comes.
    const timespec times[2] = {{0, UTIME_OMIT}, {1000000000, 0}};
    if (futimens(handle, times) != 0) fail("set the time of " + whole);
    LaidOut& laidOut = m_laidOut[relative];
    laidOut.bytes = state.bytes;
    if (fstat(handle, &laidOut.info) != 0) fail("look at " + whole);
    close(handle);
}

void Workshop::removeAllBut(const Tree& tree) {
    std::set<std::string> needed;
    for (const auto& [relative, state] : tree) {
        for (fs::path folder = fs::path(relative).parent_path(); !folder.empty();
             folder = folder.parent_path())
            needed.insert(folder.string());
    }
    std::vector<fs::path> unwanted;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_root)) {
        const std::string relative = entry.path().string().substr(m_root.size() + 1);
        const bool isFolder = entry.is_directory() && !entry.is_symlink();
        if (isFolder ? needed.count(relative) == 0 : tree.count(relative) == 0)
            unwanted.push_back(entry.path());
    }
    for (const fs::path& one : unwanted) fs::remove_all(one);
}

std::vector<std::string> Workshop::names() const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_root)) {
        if (!entry.is_directory()) names.push_back(entry.path().string().substr(m_root.size() + 1));
    }
    return names;
}

std::optional<qint64> Workshop::lengthOf(const std::string& relative) const {
    struct stat info {};
    if (stat(path(relative).c_str(), &info) != 0) return std::nullopt;
    return info.st_size;
}

bool Workshop::holds(const std::string& relative, const QByteArray& bytes) const {
    return lengthOf(relative) == bytes.size() && beginsWith(relative, bytes);
}

bool Workshop::beginsWith(const std::string& relative, const QByteArray& bytes) const {
    return Mapped(path(relative)).beginsWith(bytes);
}

QByteArray Workshop::read(const std::string& relative, qint64 from) const {
    return Mapped(path(relative)).from(static_cast<size_t>(from));
}

Rights Workshop::rightsOf(const std::string& relative) const {
    struct stat info {};
    if (stat(path(relative).c_str(), &info) != 0) return {0, 0, 0};
    return {info.st_mode & 07777, info.st_uid, info.st_gid};
}

} // namespace torvane::faults
