// SPDX-License-Identifier: MIT
// Checksums of contents: SHA-256, as 64 hexadecimal digits.
#pragma once

#include "platform/base/SystemCalls.h"

#include <QByteArrayView>

namespace torvane::ContentSum {

QByteArray of(QByteArrayView bytes);
/// The checksum of an open file, from its first byte. Fails if it can't be read.
QByteArray of(const Handle& file);

} // namespace torvane::ContentSum
