// SPDX-License-Identifier: MIT
// Addresses of files ("file:///..."), read as bytes: Qt would read them as UTF-8, which names need not be.
#pragma once

#include <QByteArray>

namespace torvane::FileAddress {

/// Whether it is the address of a file, of whatever machine.
bool isOne(const QByteArray& address);

/// The real path in a file's address (RFC 8089), percent-decoded; empty for any other address and for files
/// of another machine. A "?" or "#" counts as part of the name.
QByteArray pathOf(const QByteArray& address);

} // namespace torvane::FileAddress
