// SPDX-License-Identifier: MIT
// The handler keeps no variable: that a signal has come shows by the default dispositions that it restores.
#include "Interruption.h"

namespace torvane {

namespace {
constexpr int endSignals[] = {SIGINT, SIGTERM};

struct sigaction dispositionOf(int number) {
    struct sigaction disposition {};
    sigaction(number, nullptr, &disposition);
    return disposition;
}

void restoreDefaults(int) {
    for (const int number : endSignals) {
        if (dispositionOf(number).sa_handler == restoreDefaults) std::signal(number, SIG_DFL);
    }
}
} // namespace

Interruption::Interruption() {
    struct sigaction noting {};
    noting.sa_handler = restoreDefaults;
    noting.sa_flags = SA_RESTART;
    for (const int number : endSignals) {
        if (dispositionOf(number).sa_handler == SIG_IGN) continue;
        if (sigaction(number, &noting, nullptr) == 0) m_watched = number;
    }
}

bool Interruption::hasCome() const {
    return m_watched != 0 && dispositionOf(m_watched).sa_handler == SIG_DFL;
}

} // namespace torvane
