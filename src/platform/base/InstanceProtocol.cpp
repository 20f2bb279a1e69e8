// SPDX-License-Identifier: MIT
// The frame of a message, and who is at the other end.
#include "InstanceProtocol.h"

#include <QtEndian>
#include <sys/socket.h>

namespace torvane::InstanceProtocol {

namespace {
constexpr quint32 mark = 0x4C494E4B;
} // namespace

QByteArray framed(const QByteArray& message) {
    QByteArray head(headLength, '\0');
    qToBigEndian(mark, head.data());
    qToBigEndian(static_cast<quint32>(message.size()), head.data() + sizeof mark);
    return head + message;
}

std::optional<QByteArray> unframed(const QByteArray& sent) {
    if (sent.size() < headLength || qFromBigEndian<quint32>(sent.constData()) != mark) return std::nullopt;
    const auto length = qsizetype{qFromBigEndian<quint32>(sent.constData() + sizeof mark)};
    if (length > longestMessage || sent.size() != headLength + length) return std::nullopt;
    return sent.sliced(headLength);
}

bool isOfThisUser(const Handle& socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

} // namespace torvane::InstanceProtocol
