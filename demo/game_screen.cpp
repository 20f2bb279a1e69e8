// SPDX-License-Identifier: MIT
// Plays a demo game without a window and saves one picture of its screen. A build tool for the demos only;
// the emulator is mGBA's library. The same game and moves always give the same picture.
#include <mgba/flags.h>

#include <mgba/core/core.h>
#include <mgba/core/log.h>

#include <cstdint>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace torvane {
namespace {

/// Wide enough for the largest screen that the library knows.
constexpr std::size_t stride = 256;

void keepSilent(mLogger*, int, mLogLevel, const char*, va_list) {}

/// The bits of keys given as letters: A, B, E (select), T (start), and the directions R, L, U, D.
std::uint32_t keysOf(std::string_view letters) {
    constexpr std::string_view bits = "ABETRLUD";
    std::uint32_t keys = 0;
    for (const char letter : letters) {
        const auto bit = bits.find(letter);
        if (bit == std::string_view::npos) {
            throw std::runtime_error(std::string("no such key: ") + letter);
        }
        keys |= std::uint32_t{1} << bit;
    }
    return keys;
}

/// One game in the emulator.
class Play {
public:
    explicit Play(const char* game) : m_core(mCoreFind(game)), m_pixels(stride * stride) {
        if (m_core == nullptr || !m_core->init(m_core)) {
            throw std::runtime_error(std::string("not a game: ") + game);
        }
        mCoreInitConfig(m_core, nullptr); // nobody's own settings
        m_core->setVideoBuffer(m_core, m_pixels.data(), stride);
        if (!mCoreLoadFile(m_core, game)) {
            throw std::runtime_error(std::string("cannot read ") + game);
        }
        m_core->reset(m_core);
    }
    Play(const Play&) = delete;
    Play& operator=(const Play&) = delete;
    ~Play() {
        mCoreConfigDeinit(&m_core->config);
        m_core->deinit(m_core);
    }

    /// A move is a number of frames, and after a colon the keys that are held meanwhile: "60" or "30:AR".
    void go(const std::string& move) {
        const auto colon = move.find(':');
        m_core->setKeys(m_core,
                        colon == std::string::npos ? 0 : keysOf(std::string_view(move).substr(colon + 1)));
        for (auto frames = std::stoul(move); frames > 0; --frames) {
            m_core->runFrame(m_core);
        }
    }

    /// Saves the screen as a binary PPM.
    void save(const char* path) const {
        unsigned width = 0, height = 0;
        m_core->desiredVideoDimensions(m_core, &width, &height);
        std::ofstream out(path, std::ios::binary);
        out << "P6\n" << width << ' ' << height << "\n255\n";
        for (std::size_t y = 0; y < height; ++y) {
            for (std::size_t x = 0; x < width; ++x) {
                const auto pixel = m_pixels[y * stride + x]; // red in the lowest byte
                out.put(static_cast<char>(pixel & 0xFF));
                out.put(static_cast<char>(pixel >> 8 & 0xFF));
                out.put(static_cast<char>(pixel >> 16 & 0xFF));
            }
        }
        if (!out.flush()) {
            throw std::runtime_error(std::string("cannot write ") + path);
        }
    }

private:
    mCore* m_core;
    std::vector<color_t> m_pixels;
};

} // namespace
} // namespace torvane

int main(int argc, char** argv) try {
    if (argc < 4) {
        std::cerr << "usage: game_screen GAME SCREEN.ppm MOVE...\n";
        return 2;
    }
    mLogger silent{};
    silent.log = torvane::keepSilent;
    mLogSetDefaultLogger(&silent);
    torvane::Play play(argv[1]);
    for (int i = 3; i < argc; ++i) {
        play.go(argv[i]);
    }
    play.save(argv[2]);
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "game_screen: " << failure.what() << '\n';
    return 1;
}
