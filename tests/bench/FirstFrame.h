// SPDX-License-Identifier: MIT
// Watches a window until its first frame stands on the display, and tells when that was and how much memory
// the process has needed so far. The same code for the program's window and the one it is compared with.
#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace torvane::bench {

/// Prints "painted" (monotonic nanoseconds) and "painted-kB" (peak of the resident memory) at the first
/// frame, "settled-kB" after the hold, and ends the process: with 0, or with 3 if the display did not show
/// the frame or `isSettled` says that the process had not done at the end what it should have.
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
