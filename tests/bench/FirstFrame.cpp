// SPDX-License-Identifier: MIT
// The first frame: a paint event shows that it is being made, the display's content that it is there.
#include "FirstFrame.h"
#include "Clock.h"
#include "WindowPlace.h"

#include <QEvent>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace torvane::bench {

namespace {
long peakMemory() {
    long kilobytes = 0;
    std::FILE* status = std::fopen("/proc/self/status", "r");
    char line[256];
    while (status != nullptr && std::fgets(line, sizeof line, status) != nullptr) {
        if (std::sscanf(line, "VmHWM: %ld", &kilobytes) == 1) break;
    }
    if (status != nullptr) std::fclose(status);
    return kilobytes;
}

[[noreturn]] void end(int code) {
    std::fflush(nullptr);
    _exit(code);
}

// A pixel of the display. The answer comes after everything that was sent to the display before.
QRgb shownPixel(const QWidget& window, QPoint spot) {
    const QImage image = window.screen()->grabWindow(window.winId(), spot.x(), spot.y(), 1, 1).toImage();
    return image.isNull() ? 0 : image.pixel(0, 0);
}
} // namespace

FirstFrame::FirstFrame(QWidget& window, int holdMilliseconds, std::function<bool()> isSettled)
    : m_window(window), m_hold(holdMilliseconds), m_isSettled(std::move(isSettled)) {
    window.installEventFilter(this);
}

bool FirstFrame::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Paint && !m_seen) {
        m_seen = true;
        // The frame is sent once this turn of the event loop has painted all controls.
        QTimer::singleShot(0, this, [this] { painted(); });
    }
    return false;
}

void FirstFrame::painted() {
    const QRgb shown = shownPixel(m_window, bareSpot);
    const std::int64_t time = wallClock();
    const long memory = peakMemory();
    const QRgb wanted = m_window.grab(QRect(bareSpot, QSize(1, 1))).toImage().pixel(0, 0);
    if (shown != wanted || m_window.childAt(bareSpot) != nullptr) {
        std::fprintf(stderr, "The display shows %08x in place of %08x.\n", shown, wanted);
        end(3);
    }
    std::printf("painted %" PRId64 "\npainted-kB %ld\n", time, memory);
    QTimer::singleShot(m_hold, this, [this] { settled(); });
}

void FirstFrame::settled() {
    std::printf("settled-kB %ld\n", peakMemory());
    end(m_isSettled() ? 0 : 3);
}

} // namespace torvane::bench
