// SPDX-License-Identifier: MIT
// The question of long work to its caller, whether it is to go on: asked again and again, but not too often.
#pragma once

#include <QElapsedTimer>
#include <functional>
#include <utility>

namespace torvane {

class Pulse {
public:
    /// Without a question the work goes on to its end. The question must not fail.
    explicit Pulse(std::function<bool()> goesOn) : m_goesOn(std::move(goesOn)) { m_sinceAnswer.start(); }

    /// Whether to go on; asks if the last answer is 10 ms old. The first "no" is the last answer.
    bool beats() {
        if (m_hasEnded || m_sinceAnswer.elapsed() < milliseconds) return !m_hasEnded;
        m_hasEnded = m_goesOn && !m_goesOn();
        m_sinceAnswer.start();
        return !m_hasEnded;
    }

private:
    static constexpr qint64 milliseconds = 10;

    std::function<bool()> m_goesOn;
    QElapsedTimer m_sinceAnswer;
    bool m_hasEnded = false;
};

} // namespace torvane
