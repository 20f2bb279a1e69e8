// SPDX-License-Identifier: MIT
// Computing checksums.
#include "ContentSum.h"
#include "platform/base/FileBlocks.h"

#include <QCryptographicHash>

namespace torvane::ContentSum {

QByteArray of(QByteArrayView bytes) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(bytes);
    return hash.result().toHex();
}

QByteArray of(const Handle& file) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    FileBlocks blocks(file, 0, infoOf(file).st_size);
    for (QByteArrayView block = blocks.next(); !block.isEmpty(); block = blocks.next()) hash.addData(block);
    return hash.result().toHex();
}

} // namespace torvane::ContentSum
