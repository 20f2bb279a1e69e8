// SPDX-License-Identifier: MIT
// Writing to a descriptor.
#include "Output.h"
#include "platform/base/SystemCalls.h"

#include <poll.h>
#include <sys/ioctl.h>

namespace torvane {

namespace {
constexpr size_t enough = 64 << 10;
}

void Output::write(QByteArrayView bytes) {
    if (m_error != 0) return;
    m_waiting.append(bytes.data(), static_cast<size_t>(bytes.size()));
    if (m_waiting.size() >= enough) flush();
}

void Output::flush() {
    QByteArrayView rest(m_waiting.data(), static_cast<qsizetype>(m_waiting.size()));
    while (m_error == 0 && !rest.isEmpty()) {
        if (!writeSome(rest)) m_error = errno;
    }
    m_waiting.clear();
}

// False with errno set if it failed.
bool Output::writeSome(QByteArrayView& rest) {
    const ssize_t written =
        uninterrupted([&] { return ::write(m_descriptor, rest.data(), static_cast<size_t>(rest.size())); });
    if (written >= 0) {
        rest = rest.sliced(written);
        return true;
    }
    // Whoever shares a pipe or terminal with this program may have made it one that does not wait.
    if (errno != EAGAIN) return false;
    pollfd ready{m_descriptor, POLLOUT, 0};
    return poll(&ready, 1, -1) >= 0 || errno == EINTR;
}

bool Output::isTerminal() const { return isatty(m_descriptor) == 1; }

int Output::terminalWidth() const {
    winsize size{};
    return isTerminal() && ioctl(m_descriptor, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

} // namespace torvane
