// SPDX-License-Identifier: MIT
// The user's wish to end: SIGINT or SIGTERM. The first signal is only noted, so that the file at work is
// finished; from then on both signals kill as usual.
#pragma once

#include <csignal>

namespace torvane {

class Interruption {
public:
    /// Catches both signals, for the rest of the process. One that is ignored stays ignored, as for a command
    /// that was started in the background.
    Interruption();

    /// Whether a signal has come.
    bool hasCome() const;

private:
    int m_watched = 0; // the signal by whose disposition it shows; 0 if both are ignored
};

} // namespace torvane
