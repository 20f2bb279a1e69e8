// SPDX-License-Identifier: MIT
// The replaced calls: each does what the C library's own does, and counts.
#include "CountedReads.h"

#include <array>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace torvane::bench {

namespace {
constexpr size_t mostHandles = 4096;
// Allocates no memory: these functions are called from anywhere, even before main.
std::array<bool, mostHandles> counted{};
char countedFolder[4096] = "";
std::int64_t bytes = 0;
int opens = 0;

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool isCounted(int handle) {
    return handle >= 0 && static_cast<size_t>(handle) < mostHandles && counted[static_cast<size_t>(handle)];
}

int opened(int handle, const char* path) {
    if (handle < 0 || static_cast<size_t>(handle) >= mostHandles) return handle;
    const size_t length = std::strlen(countedFolder);
    const bool below = length > 0 && std::strncmp(path, countedFolder, length) == 0 && path[length] == '/';
    counted[static_cast<size_t>(handle)] = below;
    if (below) ++opens;
    return handle;
}

ssize_t tookIn(int handle, ssize_t got) {
    if (got > 0 && isCounted(handle)) bytes += got;
    return got;
}
} // namespace

void countReadsBelow(const std::string& folder) {
    std::strncpy(countedFolder, folder.c_str(), sizeof countedFolder - 1);
}

std::int64_t takeCountedBytes() {
    const std::int64_t taken = bytes;
    bytes = 0;
    return taken;
}

int takeCountedOpens() {
    const int taken = opens;
    opens = 0;
    return taken;
}

} // namespace torvane::bench

using namespace torvane::bench;

// NOLINTBEGIN: the signatures and the spellings are those of the C library.
#define OPEN_CALL(name)                                                                                      \
    extern "C" int name(const char* path, int flags, ...) {                                                  \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = va_arg(rest, mode_t);                                                            \
        va_end(rest);                                                                                        \
        static const auto real = next<int (*)(const char*, int, ...)>(#name);                                \
        return opened(real(path, flags, mode), path);                                                        \
    }
#define OPENAT_CALL(name)                                                                                    \
    extern "C" int name(int folder, const char* path, int flags, ...) {                                      \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = va_arg(rest, mode_t);                                                            \
        va_end(rest);                                                                                        \
        static const auto real = next<int (*)(int, const char*, int, ...)>(#name);                           \
        return opened(real(folder, path, flags, mode), path);                                                \
    }
#define PREAD_CALL(name)                                                                                     \
    extern "C" ssize_t name(int handle, void* buffer, size_t count, off_t position) {                        \
        static const auto real = next<ssize_t (*)(int, void*, size_t, off_t)>(#name);                        \
        return tookIn(handle, real(handle, buffer, count, position));                                        \
    }
#define MMAP_CALL(name)                                                                                      \
    extern "C" void* name(void* at, size_t length, int protection, int flags, int handle,                    \
                          off_t offset) noexcept {                                                           \
        static const auto real = next<void* (*)(void*, size_t, int, int, int, off_t)>(#name);                \
        tookIn(handle, static_cast<ssize_t>(length));                                                        \
        return real(at, length, protection, flags, handle, offset);                                          \
    }

OPEN_CALL(open)
OPEN_CALL(open64)
OPENAT_CALL(openat)
OPENAT_CALL(openat64)
PREAD_CALL(pread)
PREAD_CALL(pread64)
MMAP_CALL(mmap)
MMAP_CALL(mmap64)

extern "C" ssize_t read(int handle, void* buffer, size_t count) {
    static const auto real = next<ssize_t (*)(int, void*, size_t)>("read");
    return tookIn(handle, real(handle, buffer, count));
}

extern "C" ssize_t readv(int handle, const iovec* pieces, int count) {
    static const auto real = next<ssize_t (*)(int, const iovec*, int)>("readv");
    return tookIn(handle, real(handle, pieces, count));
}

extern "C" int close(int handle) {
    static const auto real = next<int (*)(int)>("close");
    if (isCounted(handle)) counted[static_cast<size_t>(handle)] = false;
    return real(handle);
}
// NOLINTEND
