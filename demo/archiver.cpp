// SPDX-License-Identifier: MIT
// Packs one demo game into an archive. A build tool for the demos only. General packers store times and
// owners of the file as well, so that each build would give other bytes.
#include <iostream>
#include <zip.h>

namespace {

// Midnight of 1 April 2025, when the demo games were made, in the form of DOS: 7 bits of years since 1980, 4
// of the month, 5 of the day.
constexpr zip_uint16_t dosDate = (2025 - 1980) << 9 | 4 << 5 | 1;

// False if libzip refuses; it writes the archive when it is closed.
bool pack(const char* file, const char* member, const char* archive) {
    zip_t* zip = zip_open(archive, ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    if (!zip) return false;
    zip_source_t* source = zip_source_file(zip, file, 0, -1);
    const zip_int64_t index = source ? zip_file_add(zip, member, source, ZIP_FL_ENC_GUESS) : -1;
    if (index >= 0 && zip_file_set_dostime(zip, zip_uint64_t(index), 0, dosDate, 0) == 0 &&
        zip_close(zip) == 0)
        return true;
    zip_discard(zip);
    return false;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: archiver FILE MEMBER ARCHIVE\n";
        return 2;
    }
    if (pack(argv[1], argv[2], argv[3])) return 0;
    std::cerr << "archiver: cannot pack " << argv[1] << " into " << argv[3] << '\n';
    return 1;
}
