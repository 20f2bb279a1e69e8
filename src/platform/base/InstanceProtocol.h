// SPDX-License-Identifier: MIT
// What two instances of a program say to each other over a local socket: the second one sends a message and
// closes its direction, the first one answers with a receipt.
#pragma once

#include "SystemCalls.h"

#include <optional>

namespace torvane::InstanceProtocol {

/// In bytes: 1,000 paths of the greatest length.
constexpr qsizetype longestMessage = qsizetype{4} << 20;
/// The bytes before the message.
constexpr qsizetype headLength = 8;
/// The answer to a whole message.
constexpr char receipt = 1;

/// The message with its head, as it is sent.
QByteArray framed(const QByteArray& message);
/// The message in all that a caller has sent; nothing if it is not exactly one whole message.
std::optional<QByteArray> unframed(const QByteArray& sent);

/// Whether the process at the other end of a connected local socket belongs to this user.
bool isOfThisUser(const Handle& socket);

} // namespace torvane::InstanceProtocol
