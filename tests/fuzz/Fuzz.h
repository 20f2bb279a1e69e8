// SPDX-License-Identifier: MIT
// Shared by the fuzz targets: a check that ends the run, an input that is cut into values, and a folder for
// files. A target is a function that takes any bytes; CMakeLists.txt shows how to run it.
#pragma once

#include <QByteArray>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <numeric>
#include <string>
#include <unistd.h>

/// FUZZ_TARGET(NAME) { ... }: one run of a target on `data` of `size` bytes; returns 0. A fuzzer knows one
/// target, by a name that libFuzzer gives; the program of the replays has them all.
#ifdef TORVANE_FUZZER
#define FUZZ_FUNCTION(name) LLVMFuzzerTestOneInput
#else
#define FUZZ_FUNCTION(name) replay_##name
#endif
#define FUZZ_TARGET(name)                                                                                    \
    extern "C" int FUZZ_FUNCTION(name)(const uint8_t* data, size_t size);                                    \
    int FUZZ_FUNCTION(name)(const uint8_t* data, size_t size)

namespace torvane::fuzz {

/// Ends the whole run if a property does not hold; unlike assert() in every build.
inline void require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "This does not hold: %s\n", property);
    std::abort();
}

/// Whether an input is one of those few that deserve slow work. Depends on all of its bytes, since the fuzzer
/// would soon find a single byte that decides this and keep it.
inline bool isOneIn32(const uint8_t* data, size_t size) {
    return std::accumulate(data, data + size, size_t{0}) % 32 == 1;
}

/// Bytes that are taken from the front, value by value. After the end everything is 0 or empty.
class Input {
public:
    Input(const uint8_t* data, size_t size)
        : m_bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)) {}

    int byte() {
        const QByteArray one = take(1);
        return one.isEmpty() ? 0 : static_cast<uchar>(one[0]);
    }
    /// Two bytes as a number below a limit.
    int number(int limit) {
        const int low = byte();
        return (low + 256 * byte()) % limit;
    }
    /// One byte for the length, and as many bytes.
    QByteArray piece() { return take(byte()); }
    QByteArray rest() { return take(m_bytes.size()); }
    bool isEmpty() const { return m_bytes.isEmpty(); }

private:
    QByteArray take(qsizetype count) {
        const QByteArray taken = m_bytes.first(std::min(count, m_bytes.size())).toByteArray();
        m_bytes = m_bytes.sliced(taken.size());
        return taken;
    }

    QByteArrayView m_bytes;
};

/// A folder that is deleted at the end of the run; in memory if possible, since millions of files are
/// written.
class Scratch {
public:
    Scratch() {
        const char* wanted = std::getenv("TMPDIR");
        const bool hasMemory = wanted == nullptr && access("/dev/shm", W_OK) == 0;
        m_path = hasMemory ? "/dev/shm" : std::filesystem::temp_directory_path().string();
        m_path += "/torvane-fuzz-XXXXXX";
        require(mkdtemp(m_path.data()) != nullptr, "there is a folder for files");
    }
    ~Scratch() {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    /// Contains no dot, and no trailing separator.
    const std::string& path() const { return m_path; }

    void write(const std::string& name, const std::string& bytes) const {
        std::FILE* file = std::fopen((m_path + '/' + name).c_str(), "wb");
        require(file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() &&
                    std::fclose(file) == 0,
                "a file can be written");
    }
    /// The content of a file; "(none)" if there is no such file.
    std::string read(const std::string& name) const {
        std::FILE* file = std::fopen((m_path + '/' + name).c_str(), "rb");
        if (file == nullptr) return "(none)";
        std::string bytes(1 << 16, '\0');
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
        std::fclose(file);
        return bytes;
    }

private:
    std::string m_path;
};

} // namespace torvane::fuzz
