// SPDX-License-Identifier: MIT
// Asks the caller of long work whether to continue, at most every 10 ms.
#pragma once

#include <QElapsedTimer>
#include <functional>
#include <utility>

namespace torvane {

class Pulse {
public:
    /// Without a question the work continues to its end. The question must not fail.
    explicit Pulse(std::function<bool()> question) : m_question(std::move(question)) {
        m_sinceAnswer.start();
    }

    /// Whether to continue; asks again once the last answer is 10 ms old. After the first "no" it never asks
    /// again.
    bool shouldContinue() {
        if (m_hasEnded || m_sinceAnswer.elapsed() < milliseconds) return !m_hasEnded;
        m_hasEnded = m_question && !m_question();
        m_sinceAnswer.start();
        return !m_hasEnded;
    }

private:
    static constexpr qint64 milliseconds = 10;

    std::function<bool()> m_question;
    QElapsedTimer m_sinceAnswer;
    bool m_hasEnded = false;
};

} // namespace torvane
