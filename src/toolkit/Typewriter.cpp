// SPDX-License-Identifier: MIT
// The typing.
#include "Typewriter.h"
#include "platform/forms/Runtime.h"

namespace torvane {

void Typewriter::type(const QString& text) {
    m_paper.setCaption(QString());
    m_pending = text;
    m_timer.setEnabled(true);
}

void Typewriter::tick() {
    // Taken before the events run: a click among them may start another text, which must keep its first
    // character.
    const QString next = m_pending.left(1);
    m_pending.remove(0, 1);
    m_paper.setCaption(m_paper.Caption() + next);
    pumpEvents();
    if (m_pending.isEmpty()) m_timer.setEnabled(false);
}

} // namespace torvane
