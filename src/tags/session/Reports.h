// SPDX-License-Identifier: MIT
// What the user hears on standard error: what went wrong with which file and, on a terminal, how far work
// that takes long has come.
#pragma once

#include "platform/base/RuntimeFailure.h"

#include <QByteArray>
#include <chrono>

namespace torvane {

class Reports {
public:
    using Clock = std::chrono::steady_clock;

    /// The descriptor stays the caller's.
    explicit Reports(int descriptor) : m_descriptor(descriptor) {}
    ~Reports() { clearBar(); }
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

    /// Reports a fault of a file, in one line. The name is given as bytes, the reason without a line end.
    void fault(const QByteArray& name, const QByteArray& reason);
    /// The same for a failure, in English.
    void fault(const QByteArray& name, const RuntimeFailure& failure);
    /// The same for work on the file at a spelled path that needs other files, too: if one of those is at
    /// fault, it is named as well.
    void fault(const QByteArray& name, const QString& path, const RuntimeFailure& failure);
    /// Reports that all of the work is refused; the reason is given without a line end.
    void refusal(const QByteArray& reason);
    /// Prints what the user has to know although nothing went wrong; given without a line end.
    void remark(const QByteArray& text);
    bool hasFaults() const { return m_hasFaults; }
    /// Prints a text as it is.
    void print(const QByteArray& text) const;

    /// Work on so many files begins. The bar appears after half a second of it, on terminals only.
    void begin(int total);
    /// One more file is done.
    void step();
    /// Removes the bar until the next begin().
    void end();

private:
    void showBar();
    void clearBar();

    int m_descriptor;
    bool m_hasFaults = false;
    bool m_hasBar = false;  // it is on the screen
    bool m_mayShow = false; // work is going on, and there is a terminal
    int m_total = 0;
    int m_done = 0;
    Clock::time_point m_nextLook;
};

} // namespace torvane
