// SPDX-License-Identifier: MIT
// Converts the pictures of the demo games, drawn with characters in a text file, to .byte lines that both
// assemblers read. A build tool for the demos only; the games decide where the bytes go.
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace torvane {
namespace {

constexpr std::size_t tileEdge = 8;

/// One picture: the character codes of its tiles, row by row, and its pixel lines.
struct Picture {
    std::string codes;
    std::vector<std::string> lines;
};

unsigned shadeOf(char pixel) {
    const auto shade = std::string_view(".-+#").find(pixel);
    if (shade == std::string_view::npos) {
        throw std::runtime_error(std::string("no such pixel: ") + pixel);
    }
    return static_cast<unsigned>(shade);
}

/// The bits of one plane (0 or 1) for the eight pixels that begin at `column`, leftmost in the top bit.
unsigned planeOf(const std::string& line, std::size_t column, unsigned plane) {
    unsigned bits = 0;
    for (std::size_t x = 0; x < tileEdge; ++x) {
        bits = bits << 1 | (shadeOf(line.at(column + x)) >> plane & 1);
    }
    return bits;
}

/// Comments begin with ";", pictures with "tiles " and their codes; all other lines are pixels.
std::vector<Picture> readPictures(std::istream& in) {
    std::vector<Picture> pictures;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line.front() == ';') {
            continue;
        }
        if (line.starts_with("tiles ")) {
            pictures.push_back({line.substr(6), {}});
        } else if (pictures.empty()) {
            throw std::runtime_error("pixels before the first picture: " + line);
        } else {
            pictures.back().lines.push_back(line);
        }
    }
    return pictures;
}

/// A tile is its code, followed by one byte per plane for each of its eight lines.
void writeTile(std::ostream& out, const Picture& picture, std::size_t tile, unsigned planes) {
    const std::size_t across = picture.lines.front().size() / tileEdge;
    const std::size_t top = tile / across * tileEdge;
    const std::size_t left = tile % across * tileEdge;
    out << "\t.byte " << static_cast<unsigned>(static_cast<unsigned char>(picture.codes[tile]));
    for (std::size_t y = 0; y < tileEdge; ++y) {
        for (unsigned plane = 0; plane < planes; ++plane) {
            out << ',' << planeOf(picture.lines.at(top + y), left, plane);
        }
    }
    out << '\n';
}

void checkShape(const Picture& picture) {
    std::size_t pixels = 0;
    for (const auto& line : picture.lines) {
        pixels += line.size();
        if (line.size() != picture.lines.front().size()) {
            throw std::runtime_error("ragged picture: " + picture.codes);
        }
    }
    if (pixels == 0 || pixels != picture.codes.size() * tileEdge * tileEdge) {
        throw std::runtime_error("picture and number of codes do not agree: " + picture.codes);
    }
}

void convert(const std::string& source, const std::string& target, unsigned planes) {
    std::ifstream in(source);
    if (!in) {
        throw std::runtime_error("cannot read " + source);
    }
    std::ofstream out(target);
    for (const auto& picture : readPictures(in)) {
        checkShape(picture);
        for (std::size_t tile = 0; tile < picture.codes.size(); ++tile) {
            writeTile(out, picture, tile, planes);
        }
    }
    out << "\t.byte 0\n"; // Code 0 ends the table.
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + target);
    }
}

} // namespace
} // namespace torvane

int main(int argc, char** argv) try {
    const std::string_view planes = argc == 4 ? argv[1] : "";
    if (planes != "1" && planes != "2") {
        std::cerr << "usage: picture_bytes 1|2 PICTURES.txt BYTES.inc\n";
        return 2;
    }
    torvane::convert(argv[2], argv[3], planes == "1" ? 1 : 2);
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "picture_bytes: " << failure.what() << '\n';
    return 1;
}
