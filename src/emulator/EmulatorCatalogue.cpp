// SPDX-License-Identifier: MIT
// Reading the first line of the emulator list.
#include "EmulatorCatalogue.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/File.h"
#include "platform/base/RuntimeFailure.h"

#include <QByteArrayList>

namespace torvane {

namespace {
// A longer line is not from an emulator list; a wrong file must not fill the memory.
constexpr qint64 longestLine = 16 << 10;

QByteArray firstLine(const QString& file) {
    const QByteArray bytes = File(file).readAt(0, longestLine);
    qsizetype end = 0;
    while (end < bytes.size() && bytes[end] != '\r' && bytes[end] != '\n') ++end;
    return bytes.first(end);
}
} // namespace

void EmulatorCatalogue::read() {
    const QString folder = m_globals.AppPath + QStringLiteral("\\emuladores");
    ignoring([&] {
        const QByteArrayList parts = firstLine(folder + QStringLiteral("\\emus.dat")).split('#');
        if (parts.size() > 1) EmulatorCommand = folder + CodePage1252::fromBytes(parts[1]);
    });
}

} // namespace torvane
