// SPDX-License-Identifier: MIT
// How a TCP connection ended. Qt (6.4) reports a reset as an orderly end. Owned by whoever has the
// connection.
#pragma once

#include "SystemCalls.h"

namespace torvane {

class TcpEnd {
public:
    /// Of no connection.
    TcpEnd() = default;
    /// Of a connected socket, by its descriptor. Keeps a duplicate: Qt closes its own before it reports the
    /// end. So the connection stays open until this is gone, too.
    explicit TcpEnd(qintptr socket);

    /// Whether the connection is broken: reset by the other side or by the network. An orderly end, which
    /// leaves our side open, gives false, and so does a socket that the system can't answer for.
    bool wasReset() const;

private:
    Handle m_socket;
};

} // namespace torvane
