// SPDX-License-Identifier: MIT
// Makes a cartridge image from an assembled demo game: checks the header against the image, pads it to the
// cartridge size and sets the checksums of the header. A build tool for the demos only.
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace torvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The value of an empty cell of a ROM chip.
constexpr std::uint8_t unwritten = 0xFF;

Bytes readAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeAll(const std::string& path, const Bytes& image) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

void pad(Bytes& image, std::size_t size) {
    if (image.size() > size) {
        throw std::runtime_error("the program is larger than its cartridge");
    }
    image.resize(size, unwritten);
}

/// Sets the header checksum (which the console checks) and the checksum over the whole cartridge.
void finishGameBoy(Bytes& image) {
    constexpr std::size_t title = 0x134, sizeCode = 0x148, headerSum = 0x14D, wholeSum = 0x14E;
    if (image.at(sizeCode) > 8 || (std::size_t{32} * 1024 << image.at(sizeCode)) != image.size()) {
        throw std::runtime_error("the header's size byte does not fit the size of the image");
    }
    unsigned sum = 0;
    for (std::size_t at = title; at < headerSum; ++at) {
        sum = sum - image[at] - 1;
    }
    image[headerSum] = static_cast<std::uint8_t>(sum);
    unsigned total = 0;
    for (std::size_t at = 0; at < image.size(); ++at) {
        total += at == wholeSum || at == wholeSum + 1 ? 0 : image[at];
    }
    image[wholeSum] = static_cast<std::uint8_t>(total >> 8);
    image[wholeSum + 1] = static_cast<std::uint8_t>(total);
}

/// Sets the complement byte over title, code and fixed bytes.
void finishAdvance(Bytes& image) {
    constexpr std::size_t title = 0xA0, fixedByte = 0xB2, complement = 0xBD;
    if (image.at(fixedByte) != 0x96) {
        throw std::runtime_error("the header lacks its fixed byte");
    }
    unsigned sum = 0;
    for (std::size_t at = title; at < complement; ++at) {
        sum -= image[at];
    }
    image[complement] = static_cast<std::uint8_t>(sum - 0x19);
}

} // namespace
} // namespace torvane

int main(int argc, char** argv) try {
    const std::string_view kind = argc == 5 ? argv[1] : "";
    if (kind != "gb" && kind != "gba") {
        std::cerr << "usage: rom_image gb|gba SIZE_IN_KIB PROGRAM.bin IMAGE\n";
        return 2;
    }
    auto image = torvane::readAll(argv[3]);
    torvane::pad(image, std::stoul(argv[2]) * 1024);
    kind == "gb" ? torvane::finishGameBoy(image) : torvane::finishAdvance(image);
    torvane::writeAll(argv[4], image);
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "rom_image: " << failure.what() << '\n';
    return 1;
}
