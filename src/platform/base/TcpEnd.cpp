// SPDX-License-Identifier: MIT
// Asks Linux for the state of a connection.
#include "TcpEnd.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace torvane {

TcpEnd::TcpEnd(qintptr socket)
    : m_socket(uninterrupted([&] { return fcntl(static_cast<int>(socket), F_DUPFD_CLOEXEC, 0); })) {}

// The error itself (SO_ERROR) has been fetched by Qt and is gone. The state stays: "close wait" after an
// orderly end, since our side has not closed, and "close" after a reset.
bool TcpEnd::wasReset() const {
    tcp_info info{};
    socklen_t size = sizeof info;
    return getsockopt(m_socket.number(), IPPROTO_TCP, TCP_INFO, &info, &size) == 0 &&
           info.tcpi_state == TCP_CLOSE;
}

} // namespace torvane
