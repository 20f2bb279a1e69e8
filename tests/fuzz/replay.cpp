// SPDX-License-Identifier: MIT
// Runs a target on every file of a corpus folder, and on every prefix of the small ones, so that what the
// fuzzer has found stays tested with any compiler. Usage: NAME FOLDER...
#include "Fuzz.h"

#include <fstream>
#include <iterator>
#include <vector>

namespace {
constexpr size_t small = 64;

using Bytes = std::vector<uint8_t>;

Bytes contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Copies the bytes, so that a read beyond the end is one beyond an allocation.
void run(const Bytes& bytes, size_t length) {
    const Bytes own(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
    LLVMFuzzerTestOneInput(own.data(), own.size());
}
} // namespace

int main(int argc, char** argv) {
    size_t files = 0;
    size_t runs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[i])) {
            if (!entry.is_regular_file()) continue;
            const Bytes bytes = contentOf(entry.path());
            const size_t shortest = bytes.size() <= small ? 0 : bytes.size();
            for (size_t length = shortest; length <= bytes.size(); ++length, ++runs) run(bytes, length);
            ++files;
        }
    }
    std::printf("%zu inputs in %zu files\n", runs, files);
    return files > 0 ? 0 : 1;
}
