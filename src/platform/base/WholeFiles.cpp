// SPDX-License-Identifier: MIT
// New names, and who writes their files.
#include "WholeFiles.h"
#include "Lease.h"
#include "Paths.h"

#include <ctime>
#include <string_view>
#include <unordered_set>

namespace torvane::WholeFiles {

namespace {
using Names = std::unordered_set<std::string_view>;

enum class Work { done, underWay, unknown };

std::string_view viewOf(QByteArrayView bytes) { return {bytes.data(), static_cast<size_t>(bytes.size())}; }

bool hasRested(const Handle& file) {
    struct stat info {};
    timespec now{};
    if (fstat(file.number(), &info) != 0 || clock_gettime(CLOCK_REALTIME, &now) != 0) return true;
    const auto milliseconds = [](const timespec& time) {
        return time.tv_sec * 1000LL + time.tv_nsec / 1000000;
    };
    const auto age = milliseconds(now) - milliseconds(info.st_ctim);
    // A time to come is that of another machine's clock.
    return age < 0 || age >= restTime.count();
}

// What can't be opened is listed, as a refresh does it; one whose writer holds up all others is not.
Work workOn(const Handle& folder, std::string_view name) {
    const std::string path(name);
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const Handle file(uninterrupted([&] { return openat(folder.number(), path.c_str(), flags); }));
    if (!file.isOpen()) return errno == EWOULDBLOCK ? Work::underWay : Work::done;
    try {
        if (takeLease(file)) return Work::done;
    } catch (const RuntimeFailure&) {
        return Work::underWay;
    }
    return hasRested(file) ? Work::done : Work::unknown;
}

Names namesOf(const Tables& tables) {
    Names names;
    for (const auto& table : tables) {
        for (int i = 0; i < table->count(); ++i) names.insert(viewOf(table->bytes(i)));
    }
    return names;
}

// Takes the files out of the reading that are not whole.
void leaveOut(Reading& reading, const QString& folder, const Tables& shown) {
    const Names known = namesOf(shown);
    Names unfinished;
    const Handle handle(::open(Paths::real(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (const std::string_view name : namesOf(reading.tables)) {
        const Work work = known.contains(name) ? Work::done : workOn(handle, name);
        if (work != Work::done) unfinished.insert(name);
        if (work == Work::unknown) reading.isComplete = false;
    }
    if (unfinished.empty()) return;
    const Tables whole = reading.tables; // the unfinished names are views of it
    for (auto& table : reading.tables) {
        table = table->without([&](QByteArrayView name) { return unfinished.contains(viewOf(name)); });
    }
}
} // namespace

Reading read(const QString& folder, const QStringList& patterns, const Tables& shown) {
    Reading reading{FolderNames::read(folder, patterns), true};
    const auto keepShown = [&](size_t i) {
        if (*reading.tables[i] == *shown[i]) reading.tables[i] = shown[i];
    };
    for (size_t i = 0; i < shown.size(); ++i) keepShown(i);
    if (reading.tables == shown) return reading;
    leaveOut(reading, folder, shown);
    for (size_t i = 0; i < shown.size(); ++i) keepShown(i);
    return reading;
}

} // namespace torvane::WholeFiles
