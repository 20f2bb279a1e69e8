// SPDX-License-Identifier: MIT
// Finds or makes the user's runtime folder, and trusts no folder that somebody else could have made.
#include "RuntimeFolder.h"

namespace torvane {

namespace {
bool isPrivate(const Handle& folder) {
    struct stat info {};
    constexpr mode_t ofOthers = S_IRWXG | S_IRWXO;
    return fstat(folder.number(), &info) == 0 && info.st_uid == geteuid() && (info.st_mode & ofOthers) == 0;
}

std::optional<Handle> openPrivate(const QByteArray& path, int flags) {
    if (!path.startsWith('/')) return std::nullopt;
    Handle folder(
        uninterrupted([&] { return open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags); }));
    if (!folder.isOpen() || !isPrivate(folder)) return std::nullopt;
    return folder;
}
} // namespace

RuntimePlaces RuntimePlaces::ofEnvironment(const QByteArray& programName) {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    const QByteArray temporary = qgetenv("TMPDIR");
    return {runtime.isEmpty() ? "/run/user/" + QByteArray::number(geteuid()) : runtime,
            temporary.startsWith('/') ? temporary : QByteArray("/tmp"), programName};
}

std::optional<Handle> openRuntimeFolder(const RuntimePlaces& places) {
    if (auto folder = openPrivate(places.runtime, 0)) return folder;
    const QByteArray own = places.temporary + '/' + places.name + '-' + QByteArray::number(geteuid());
    // If it is there already, the look at it decides.
    mkdir(own.constData(), S_IRWXU);
    return openPrivate(own, O_NOFOLLOW);
}

} // namespace torvane
