// SPDX-License-Identifier: MIT
// Starts a program and watches the middle of the screen from outside until the main window's background
// appears: proves that what the programs report of themselves is what a user sees.
// Usage: bench_from_outside PROGRAM ARGUMENT...; prints "shown" in nanoseconds since the start.
#include "Clock.h"
#include "WindowPlace.h"
#include "art/ArtResources.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
using torvane::bench::bareSpot;
using torvane::bench::wallClock;

constexpr std::int64_t patience = 20'000'000'000;
constexpr useconds_t pause = 500; // microseconds between looks, so that they cost the other program little

// Whether the screen shows the wanted colour at the bare spot of the centred window.
bool isShown(QRgb wanted) {
    QScreen* screen = QGuiApplication::primaryScreen();
    const QPoint spot = torvane::bench::cornerOn(screen->geometry()) + bareSpot;
    const QImage image = screen->grabWindow(0, spot.x(), spot.y(), 1, 1).toImage();
    return !image.isNull() && image.pixel(0, 0) == wanted;
}

bool waitUntilShown(QRgb wanted, bool shown) {
    const std::int64_t end = wallClock() + patience;
    while (isShown(wanted) != shown) {
        if (wallClock() > end) return false;
        usleep(pause);
    }
    return true;
}
} // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    QGuiApplication application(argc, argv);
    torvane::initArtResources();
    const QRgb wanted = QImage(QStringLiteral(":/art/MainFrm.jpg")).pixel(bareSpot);
    if (!waitUntilShown(wanted, false)) return 3;

    const std::int64_t start = wallClock();
    pid_t child = 0;
    if (posix_spawn(&child, argv[1], nullptr, nullptr, argv + 1, environ) != 0) return 3;
    const bool seen = waitUntilShown(wanted, true);
    const std::int64_t shown = wallClock() - start;
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    if (!seen) {
        std::fprintf(stderr, "%s has shown no main window.\n", argv[1]);
        return 3;
    }
    std::printf("shown %" PRId64 "\n", shown);
    return 0;
}
