// SPDX-License-Identifier: MIT
// Runs a target on every file of a corpus folder, and on every prefix of the small ones, so that what the
// fuzzer has found stays tested with any compiler. Usage: fuzz_replays TARGET FOLDER...
#include "Fuzz.h"

#include <fstream>
#include <iterator>
#include <map>
#include <vector>

// Each target as the build names it here.
#define TARGET(name) extern "C" int replay_##name(const uint8_t* data, size_t size);
TORVANE_FUZZ_TARGETS
#undef TARGET

namespace {
using Target = int (*)(const uint8_t* data, size_t size);

std::map<std::string, Target> targets() {
#define TARGET(name) {#name, replay_##name},
    return {TORVANE_FUZZ_TARGETS};
#undef TARGET
}

constexpr size_t small = 64;

using Bytes = std::vector<uint8_t>;

Bytes contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Copies the bytes, so that a read beyond the end is one beyond an allocation.
void run(Target target, const Bytes& bytes, size_t length) {
    const Bytes own(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
    target(own.data(), own.size());
}
} // namespace

int main(int argc, char** argv) {
    const auto all = targets();
    const auto target = all.find(argc > 1 ? argv[1] : "");
    if (target == all.end()) return 2;
    size_t files = 0;
    size_t runs = 0;
    for (int i = 2; i < argc; ++i) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            if (!entry.is_regular_file()) continue;
            const Bytes bytes = contentOf(entry.path());
            const size_t shortest = bytes.size() <= small ? 0 : bytes.size();
            for (size_t length = shortest; length <= bytes.size(); ++length, ++runs)
                run(target->second, bytes, length);
            ++files;
        }
    }
    std::printf("%zu inputs in %zu files\n", runs, files);
    return files > 0 ? 0 : 1;
}
