// SPDX-License-Identifier: MIT
// One description of the tag database.
#pragma once

#include <QByteArray>

namespace torvane {

/// The fields of an entry, in the order of the file, as bytes of code page 1252.
struct OnlineDbEntry {
    QByteArray System; ///< "byn", "color" or "advance"
    QByteArray Title;
    QByteArray Company;
    QByteArray Date; ///< free text
    QByteArray Info;
    QByteArray Kind; ///< in upper case, as a rule "SYSTEM" or "USER"
    QByteArray Author;

    bool operator==(const OnlineDbEntry&) const = default;
};

} // namespace torvane
