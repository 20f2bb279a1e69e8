// SPDX-License-Identifier: MIT
// An emulator that runs in the foreground for a command: with its exit status, and with the user's wish to
// end, which goes to it.
#pragma once

#include "platform/base/NativeProcess.h"

#include <optional>

namespace torvane {

class EmulatorProcess : public NativeProcess {
public:
    enum Status { signalled = 128, notExecutable = 126, notFound = 127 };

    /// As for any other program. SIGINT and SIGTERM do not end this process meanwhile: what is sent to it
    /// alone is passed on, and what a terminal sends reaches the emulator by itself.
    void runAndWait(const QByteArray& program, const QByteArrayList& arguments) override;

    /// The exit status as a shell tells it: 128 and the number of the signal that has killed it, 126 or 127
    /// if it could not be started; nothing if no start was tried.
    std::optional<int> status() const { return m_status; }
    bool hasStarted() const { return m_hasStarted; }

private:
    bool m_hasStarted = false;
    std::optional<int> m_status;
};

} // namespace torvane
