// SPDX-License-Identifier: MIT
// The rendered movie of the start window, as the program loads it.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace torvane {

inline const QString introPath = QStringLiteral(TORVANE_ART_TREE_DIR "/data/intro.dat");

/// Its bytes; empty if it was not rendered.
inline QByteArray introBytes() {
    QFile file(introPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace torvane
