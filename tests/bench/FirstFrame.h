// SPDX-License-Identifier: MIT
// Watches a window until its first frame is on the display, and reports the time and the memory that the
// process has needed so far. The program's window and the bare one share this code.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace torvane::bench {

/// Prints "painted" (monotonic ns) and "painted-kB" (peak resident memory) at the first frame, and
/// "settled-kB" after the hold. Then ends the process: with 0, or with 3 if the display did not show the
/// frame or `isSettled` returns false, which means that the process did not finish its work in time.
class FirstFrame : public QObject {
public:
    FirstFrame(QWidget& window, int holdMilliseconds, std::function<bool()> isSettled);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void painted();
    void settled();

    QWidget& m_window;
    int m_hold;
    std::function<bool()> m_isSettled;
    bool m_seen = false;
};

} // namespace torvane::bench
