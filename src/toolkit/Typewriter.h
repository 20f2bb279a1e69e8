// SPDX-License-Identifier: MIT
// Types a text into a label, one character a tick of a timer. The window owns both and says when a tick is.
#pragma once

#include "platform/forms/Label.h"
#include "platform/forms/Timer.h"

namespace torvane {

class Typewriter {
public:
    Typewriter(Label& paper, Timer& timer) : m_paper(paper), m_timer(timer) {}

    /// Begins to type, replacing what was typed or is being typed.
    void type(const QString& text);
    /// Types one character and lets events through; stops the timer after the last one.
    void tick();

private:
    Label& m_paper;
    Timer& m_timer;
    QString m_pending;
};

} // namespace torvane
