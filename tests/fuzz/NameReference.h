// SPDX-License-Identifier: MIT
// File names as the program spells them, and case-folded, character by character.
#pragma once

#include "platform/base/NativeText.h"

#include <QByteArrayList>
#include <QString>
#include <QStringList>

namespace torvane::fuzz {

/// A path of any bytes as the program spells it, with backslashes between folders.
inline QString spelledPath(const QByteArray& bytes) {
    QStringList pieces;
    for (const QByteArray& piece : bytes.split('\\')) pieces << NativeText::fromNative(piece);
    return pieces.join(QLatin1Char('\\'));
}

/// The folded form of a name; units that are no characters stay.
inline QString caseFolded(const QString& name) {
    QString folded;
    folded.reserve(name.size());
    for (qsizetype i = 0; i < name.size(); ++i) {
        const bool isPair = name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate();
        if (isPair) {
            folded += name.sliced(i++, 2).toCaseFolded();
        } else {
            folded += name[i].isSurrogate() ? name[i] : name[i].toCaseFolded();
        }
    }
    return folded;
}

} // namespace torvane::fuzz
